#include "support/OggBuilder.h"

#include <algorithm>
#include <stdexcept>

#include "support/TagBuilders.h"

namespace zefta::test {

namespace {

constexpr std::size_t HeaderLength = 27;
constexpr std::size_t ChecksumAt = 22;

std::string LittleEndian(std::uint64_t number, int bytes) {
    std::string text;
    for (int i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i));
    return text;
}

std::uint64_t NumberAt(std::string_view bytes, std::size_t at, int length) {
    std::uint64_t number = 0;
    for (int i = length - 1; i >= 0; --i)
        number = number << 8 | static_cast<unsigned char>(bytes[at + static_cast<std::size_t>(i)]);
    return number;
}

std::size_t SumOf(std::string_view lacing) {
    std::size_t sum = 0;
    for (const char segment : lacing) sum += static_cast<unsigned char>(segment);
    return sum;
}

bool EndsPacket(char segment) {
    return segment != '\xFF';
}

/// Lays packets out on pages of up to 255 segments.
void AddPackets(std::vector<TestPage>& pages, const std::vector<std::string>& packets, TestPage page) {
    std::string lacing;
    std::string body;
    for (const std::string& packet : packets) {
        lacing += LacingOf(packet.size());
        body += packet;
    }
    std::size_t bodyAt = 0;
    for (std::size_t at = 0; at < lacing.size(); at += 255) {
        page.number = pages.back().number + 1;
        page.flags = at > 0 && !EndsPacket(lacing[at - 1]) ? 1 : 0;
        page.lacing = lacing.substr(at, 255);
        page.granule = std::any_of(page.lacing.begin(), page.lacing.end(), EndsPacket) ? 0 : -1;
        page.body = body.substr(bodyAt, SumOf(page.lacing));
        bodyAt += page.body.size();
        pages.push_back(page);
    }
}

}  // namespace

std::uint32_t SlowOggChecksum(std::string_view page) {
    std::uint32_t checksum = 0;
    for (std::size_t i = 0; i < page.size(); ++i) {
        const bool isChecksum = i >= ChecksumAt && i < ChecksumAt + 4;
        const auto byte = isChecksum ? 0U : static_cast<std::uint32_t>(static_cast<unsigned char>(page[i]));
        for (int bit = 7; bit >= 0; --bit) {
            const bool carry = ((checksum >> 31) ^ ((byte >> bit) & 1)) != 0;
            checksum = (checksum << 1) ^ (carry ? 0x04c11db7U : 0U);
        }
    }
    return checksum;
}

std::string TestPage::Bytes() const {
    std::string bytes = "OggS";
    bytes += static_cast<char>(version);
    bytes += static_cast<char>(flags);
    bytes += LittleEndian(static_cast<std::uint64_t>(granule), 8);
    bytes += LittleEndian(serial, 4) + LittleEndian(number, 4) + LittleEndian(0, 4);
    bytes += static_cast<char>(lacing.size());
    bytes += lacing + body;
    return bytes.replace(ChecksumAt, 4, LittleEndian(SlowOggChecksum(bytes), 4));
}

std::vector<TestPage> PagesOf(std::string_view bytes) {
    std::vector<TestPage> pages;
    while (!bytes.empty()) {
        if (bytes.size() < HeaderLength || !bytes.starts_with("OggS")) throw std::runtime_error("no page");
        TestPage page;
        page.version = bytes[4];
        page.flags = bytes[5];
        page.granule = static_cast<std::int64_t>(NumberAt(bytes, 6, 8));
        page.serial = static_cast<std::uint32_t>(NumberAt(bytes, 14, 4));
        page.number = static_cast<std::uint32_t>(NumberAt(bytes, 18, 4));
        page.lacing = bytes.substr(HeaderLength, NumberAt(bytes, 26, 1));
        page.body = bytes.substr(HeaderLength + page.lacing.size(), SumOf(page.lacing));
        const std::string whole = page.Bytes();
        if (!bytes.starts_with(whole)) throw std::runtime_error("damaged page");
        bytes.remove_prefix(whole.size());
        pages.push_back(page);
    }
    return pages;
}

std::string BytesOf(const std::vector<TestPage>& pages) {
    std::string bytes;
    for (const TestPage& page : pages) bytes += page.Bytes();
    return bytes;
}

std::vector<std::string> PacketsOf(const std::vector<TestPage>& pages) {
    std::vector<std::string> packets;
    std::string packet;
    for (const TestPage& page : pages) {
        std::size_t at = 0;
        for (const char segment : page.lacing) {
            const std::size_t length = SumOf(std::string(1, segment));
            packet += page.body.substr(at, length);
            at += length;
            if (!EndsPacket(segment)) continue;
            packets.push_back(packet);
            packet.clear();
        }
    }
    if (!packet.empty()) throw std::runtime_error("a packet that does not end");
    return packets;
}

std::string LacingOf(std::size_t length) {
    return std::string(length / 255, '\xFF') + static_cast<char>(length % 255);
}

std::string CommentPacket(std::string_view vendor, const std::vector<std::string>& lines) {
    std::string packet = "\3vorbis" + LittleEndian(vendor.size(), 4) + std::string(vendor);
    packet += LittleEndian(lines.size(), 4);
    for (const std::string& line : lines) packet += LittleEndian(line.size(), 4) + line;
    return packet + '\1';
}

Ogg& Ogg::Vendor(std::string_view vendor) {
    vendor_ = vendor;
    return *this;
}

Ogg& Ogg::Comment(std::string_view line) {
    comments_.emplace_back(line);
    return *this;
}

Ogg& Ogg::CommentHeader(std::string_view packet) {
    commentHeader_ = packet;
    return *this;
}

Ogg& Ogg::Identification(std::string_view packet) {
    identification_ = packet;
    return *this;
}

Ogg& Ogg::Setup(std::string_view packet) {
    setup_ = packet;
    return *this;
}

Ogg& Ogg::SetupLength(std::size_t length) {
    const std::string marker = "\5vorbis";
    return Setup(marker + Audio(length - marker.size()));
}

Ogg& Ogg::SetupOnFreshPage() {
    setupOnFreshPage_ = true;
    return *this;
}

Ogg& Ogg::Serial(std::uint32_t serial) {
    serial_ = serial;
    return *this;
}

Ogg& Ogg::FirstNumber(std::uint32_t number) {
    firstNumber_ = number;
    return *this;
}

Ogg& Ogg::AudioPages(int count) {
    audioPages_ = count;
    return *this;
}

Ogg& Ogg::Samples(std::int64_t samples) {
    samples_ = samples;
    return *this;
}

std::vector<TestPage> Ogg::Pages() const {
    std::vector<TestPage> pages;
    AddHeaders(pages);
    AddAudio(pages);
    pages.back().flags |= 4;
    return pages;
}

void Ogg::AddHeaders(std::vector<TestPage>& pages) const {
    // Version 0, two channels, 44100 Hz, no bitrates, block sizes 256 and 2048, framing bit.
    const std::string usual =
        "\1vorbis" + LittleEndian(0, 4) + '\2' + LittleEndian(44100, 4) + std::string(12, '\0') + "\xB8\1";
    const std::string identification = identification_.empty() ? usual : identification_;
    const std::string comment = commentHeader_.empty() ? CommentPacket(vendor_, comments_) : commentHeader_;
    const std::string setup = setup_.empty() ? "\5vorbis" + Audio(700) : setup_;
    TestPage page;
    page.serial = serial_;
    page.flags = 2;
    page.number = firstNumber_;
    page.lacing = LacingOf(identification.size());
    page.body = identification;
    pages.push_back(page);
    if (setupOnFreshPage_) {
        AddPackets(pages, {comment}, page);
        AddPackets(pages, {setup}, page);
    } else {
        AddPackets(pages, {comment, setup}, page);
    }
}

void Ogg::AddAudio(std::vector<TestPage>& pages) const {
    TestPage page;
    page.serial = serial_;
    for (int i = 0; i < audioPages_; ++i) {
        const auto size = static_cast<std::size_t>(200 + 37 * (i % 20));
        const bool goesOn = (i == 1 || i == 2) && i + 1 < audioPages_;
        const std::size_t last = goesOn ? 510 : 100;
        page.flags = (i == 2 || i == 3) && pages.back().lacing.back() == '\xFF' ? 1 : 0;
        page.number = pages.back().number + 1;
        page.lacing = LacingOf(size) + LacingOf(300) + (goesOn ? std::string(2, '\xFF') : LacingOf(last));
        page.body = std::string(size, static_cast<char>('a' + i % 26)) + Audio(300 + last);
        page.granule = samples_ * (i + 1) / audioPages_;
        pages.push_back(page);
    }
}

}  // namespace zefta::test
