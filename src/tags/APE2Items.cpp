#include "tags/APE2Items.h"

#include <algorithm>
#include <array>
#include <utility>

#include "core/ByteCodec.h"
#include "core/Numbers.h"
#include "core/Strings.h"
#include "tags/MixTitle.h"
#include "tags/UTF8.h"

namespace zefta {

namespace {

template <std::string ID3Tag::*Field>
constexpr APEItem TopItem(std::string_view key) {
    return {key, [](ID3Tag& tag, std::string value) { tag.*Field = std::move(value); },
            [](const ID3Tag& tag) { return tag.*Field; }};
}

template <std::string ID3v2Extension::*Field>
constexpr APEItem ExtensionItem(std::string_view key) {
    return {key, [](ID3Tag& tag, std::string value) { tag.ID3v2Extension.*Field = std::move(value); },
            [](const ID3Tag& tag) { return tag.ID3v2Extension.*Field; }};
}

void ReadTitle(ID3Tag& tag, std::string value) {
    tag.Title = std::move(value);
    if (auto split = SplitMix(tag.Title)) {
        tag.Comment = std::move(split->mix);
        tag.Title = std::move(split->title);
    }
}

std::string WriteTitle(const ID3Tag& tag) {
    return JoinMix(tag.Title, tag.Comment);
}

constexpr std::array<APEItem, 10> Items = {{
    ExtensionItem<&ID3v2Extension::TrackNumber>("Track"),
    TopItem<&ID3Tag::Artist>("Artist"),
    {"Title", ReadTitle, WriteTitle},
    TopItem<&ID3Tag::Album>("Album"),
    TopItem<&ID3Tag::Year>("Year"),
    ExtensionItem<&ID3v2Extension::Genre>("Genre"),
    ExtensionItem<&ID3v2Extension::Comments>("Comment"),
    ExtensionItem<&ID3v2Extension::Composer>("Composer"),
    ExtensionItem<&ID3v2Extension::Copyright>("Copyright"),
    ExtensionItem<&ID3v2Extension::EncodedBy>("Encoded by"),
}};

}  // namespace

std::span<const APEItem> APEItems() {
    return Items;
}

const APEItem* FindAPEItem(std::string_view key) {
    const auto* found = std::find_if(Items.begin(), Items.end(), [&](const APEItem& item) {
        return EqualsIgnoringAsciiCase(item.key, key);
    });
    return found == Items.end() ? nullptr : found;
}

std::string WriteAPEItem(std::string_view key, std::string_view value) {
    using namespace std::string_literals;
    const std::string trimmed = Trim(value);
    if (trimmed.empty()) return {};
    std::string text = AnsiToUTF8(trimmed);
    if (text.ends_with('\0')) text.pop_back();
    return ByteCodec::FromLong(ToI32(static_cast<std::int64_t>(text.size()))) + "\0\0\0\0"s +
           std::string(key) + '\0' + text;
}

}  // namespace zefta
