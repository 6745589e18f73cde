#include "cd/ProfileFile.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>

#include "core/Steps.h"
#include "core/Strings.h"
#include "library/TextTarget.h"
#include "platform/EditedText.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

constexpr std::int32_t LargestFile = 16 * 1024 * 1024;

/// "\r\n", "\n", or "" at the end of a text that has none.
std::string_view LineEndOf(std::string_view line) {
    const std::size_t length = line.ends_with("\r\n") ? 2 : line.ends_with('\n') ? 1 : 0;
    return line.substr(line.size() - length);
}

std::string_view WithoutLineEnd(std::string_view line) {
    return line.substr(0, line.size() - LineEndOf(line).size());
}

/// The first line, with its end.
std::string_view FirstLineOf(std::string_view text) {
    const std::size_t lineFeed = text.find('\n');
    return lineFeed == std::string_view::npos ? text : text.substr(0, lineFeed + 1);
}

/// A key with its section in front; a line break can't be part of either.
std::string IndexName(std::string_view section, std::string_view key) {
    return AsciiLower(section) + '\n' + AsciiLower(key);
}

}  // namespace

ProfileFile::ProfileFile(std::string_view bytes, const CodePage& ansi) : ansi_(&ansi) {
    if (HasByteOrderMark(bytes)) byteOrderMark_ = ByteOrderMark;
    bytes = WithoutByteOrderMark(bytes);
    const std::string_view usualEnd = LineEndOf(FirstLineOf(bytes));
    if (!usualEnd.empty()) lineEnd_ = usualEnd;
    std::string sectionName;
    while (!bytes.empty()) {
        const std::string_view line = FirstLineOf(bytes);
        AddLine(line, sectionName);
        bytes.remove_prefix(line.size());
    }
}

void ProfileFile::AddLine(std::string_view raw, std::string& sectionName) {
    const std::string_view content = TrimBlanks(WithoutLineEnd(raw));
    const std::size_t equals = raw.find('=');
    const std::size_t bracket = content.find(']');
    if (content.starts_with('[') && bracket != std::string_view::npos) {
        sectionName = TrimBlanks(content.substr(1, bracket - 1));
        sectionsByName_.emplace(AsciiLower(sectionName), sections_.size());
        sections_.push_back({{{std::string(raw)}}, {}});
        return;
    }
    const bool isComment = content.starts_with(';') || content.starts_with('#');
    const std::string_view key = TrimBlanks(raw.substr(0, std::min(equals, raw.size())));
    if (isComment || equals == std::string_view::npos || key.empty()) {
        sections_.back().behindKeys.emplace_back(raw);
        return;
    }
    Section& section = sections_.back();
    for (std::string& line : section.behindKeys) section.lines.push_back({std::move(line)});
    section.behindKeys.clear();
    keys_.emplace(IndexName(sectionName, key), Place{sections_.size() - 1, section.lines.size()});
    section.lines.push_back({std::string(raw), equals + 1});
}

std::string ProfileFile::ReadProfileValue(std::string_view section, std::string_view key) const {
    const auto found = keys_.find(IndexName(section, key));
    if (found == keys_.end()) return {};
    const Line& line = sections_[found->second.section].lines[found->second.line];
    return OneLine(ansi_->ToText(WithoutLineEnd(line.text).substr(line.valueStart)));
}

void ProfileFile::WriteProfileValue(std::string_view section, std::string_view key, std::string_view value) {
    const std::string clean = OneLine(value);
    const auto found = keys_.find(IndexName(section, key));
    if (found == keys_.end()) {
        AddKey(section, key, clean);
    } else if (ReadProfileValue(section, key) != clean) {
        Line& line = sections_[found->second.section].lines[found->second.line];
        const std::string end(LineEndOf(line.text));
        line.text.replace(line.valueStart, std::string::npos, clean + end);
    } else {
        return;
    }
    isChanged_ = true;
}

void ProfileFile::AddKey(std::string_view section, std::string_view key, const std::string& value) {
    const std::size_t place = SectionFor(section);
    std::vector<Line>& lines = sections_[place].lines;
    EndLine(lines.back().text);
    keys_.emplace(IndexName(section, key), Place{place, lines.size()});
    lines.push_back({std::string(key) + '=' + value + lineEnd_, key.size() + 1});
}

/// The section of that name, made at the end when there is none.
std::size_t ProfileFile::SectionFor(std::string_view name) {
    const auto [found, isNew] = sectionsByName_.emplace(AsciiLower(name), sections_.size());
    if (!isNew) return found->second;
    Section& last = sections_.back();
    if (!last.behindKeys.empty()) {
        EndLine(last.behindKeys.back());
    } else if (!last.lines.empty()) {
        EndLine(last.lines.back().text);
    }
    sections_.push_back({{{'[' + std::string(name) + ']' + lineEnd_}}, {}});
    return sections_.size() - 1;
}

/// Only the last line of the file may lack its end.
void ProfileFile::EndLine(std::string& text) const {
    if (LineEndOf(text).empty()) text += lineEnd_;
}

std::string ProfileFile::Bytes() const {
    std::string bytes = byteOrderMark_;
    for (const Section& section : sections_) {
        for (const Line& line : section.lines) bytes += line.text;
        for (const std::string& line : section.behindKeys) bytes += line;
    }
    return bytes;
}

ProfileFile ReadProfileFile(FileSystem& files, const CodePage& ansi, const std::string& path) {
    if (!files.FileExists(path)) return {"", ansi};
    const auto file = files.OpenReadOnly(path);
    if (!file) throw RuntimeError(ErrorNumber::PermissionDenied, path);
    if (files.FileSize(path) > LargestFile) throw RuntimeError(ErrorNumber::OutOfMemory, path);
    return {file->ReadBytes(LargestFile), ansi};
}

void WriteProfileFile(FileSystem& files, const std::string& path, const ProfileFile& profile) {
    if (!profile.IsChanged() && files.FileExists(path)) return;
    TextTarget(files, path).Put(profile.Bytes());
}

}  // namespace zefta
