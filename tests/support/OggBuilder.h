#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zefta::test {

/// One page of an Ogg stream in a test, field by field.
struct TestPage {
    int flags = 0;
    std::int64_t granule = 0;
    std::uint32_t serial = 0x1234;
    std::uint32_t number = 0;
    std::string lacing;
    std::string body;
    int version = 0;

    /// With the checksum that belongs to it.
    std::string Bytes() const;

    bool operator==(const TestPage&) const = default;
};

/// Checksum by the definition, bit by bit.
std::uint32_t SlowOggChecksum(std::string_view page);

/// The pages of a file. Throws std::runtime_error where no whole page with the right checksum stands.
std::vector<TestPage> PagesOf(std::string_view bytes);

std::string BytesOf(const std::vector<TestPage>& pages);

/// The packets that the pages hold, in order.
std::vector<std::string> PacketsOf(const std::vector<TestPage>& pages);

/// Segment lengths of a packet that ends.
std::string LacingOf(std::size_t length);

/// A comment header: lengths that are right, framing bit set.
std::string CommentPacket(std::string_view vendor, const std::vector<std::string>& lines);

/// Builds an Ogg Vorbis stream as encoders lay it out: one page with the identification header, then comment
/// and setup header, then audio that begins a page. The bytes of setup and audio decode to nothing.
class Ogg {
  public:
    Ogg& Vendor(std::string_view vendor);
    Ogg& Comment(std::string_view line);
    /// The whole packet, in the place of vendor and comments.
    Ogg& CommentHeader(std::string_view packet);
    Ogg& Identification(std::string_view packet);
    Ogg& Setup(std::string_view packet);
    Ogg& SetupLength(std::size_t length);
    Ogg& SetupOnFreshPage();
    Ogg& Serial(std::uint32_t serial);
    Ogg& FirstNumber(std::uint32_t number);
    /// Pages of audio, each with three packets; of the second and third page the last packet goes on on the
    /// next one.
    Ogg& AudioPages(int count);
    /// Granule position of the last page.
    Ogg& Samples(std::int64_t samples);

    std::vector<TestPage> Pages() const;
    std::string Bytes() const { return BytesOf(Pages()); }

  private:
    void AddHeaders(std::vector<TestPage>& pages) const;
    void AddAudio(std::vector<TestPage>& pages) const;

    std::string vendor_ = "Test vendor 1.0";
    std::vector<std::string> comments_;
    std::string commentHeader_;
    std::string identification_;
    std::string setup_;
    bool setupOnFreshPage_ = false;
    std::uint32_t serial_ = 0x1234;
    std::uint32_t firstNumber_ = 0;
    int audioPages_ = 5;
    std::int64_t samples_ = 441000;
};

}  // namespace zefta::test
