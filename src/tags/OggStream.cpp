#include "tags/OggStream.h"

#include <algorithm>
#include <initializer_list>
#include <numeric>
#include <span>

#include "core/Numbers.h"

namespace zefta {

namespace {

constexpr std::size_t WriteLength = 4 * 65536;
constexpr std::int64_t NoPacketEnds = -1;

std::size_t SegmentLength(char segment) {
    return static_cast<unsigned char>(segment);
}

bool EndsPacket(char segment) {
    return SegmentLength(segment) < OggFullSegment;
}

bool HoldsOnePacket(const OggPage& page) {
    return !page.lacing.empty() &&
           std::find_if(page.lacing.begin(), page.lacing.end(), EndsPacket) == page.lacing.end() - 1;
}

/// Puts the comment and the setup header together from their pages.
class HeaderGatherer {
  public:
    explicit HeaderGatherer(OggHeaders& headers) : headers_(headers) {}

    bool Complete() const { return packet_ == SetupEnded; }

    /// False when the page can't be the next one of these headers.
    bool Add(const OggPage& page) {
        if (page.Has(OggContinued) != inPacket_) return false;
        std::size_t at = 0;
        for (std::size_t i = 0; i < page.lacing.size(); ++i) {
            if (Complete()) return false;
            const std::size_t length = SegmentLength(page.lacing[i]);
            if (!Append(page.body.substr(at, length))) return false;
            at += length;
            inPacket_ = !EndsPacket(page.lacing[i]);
            if (!inPacket_) ++packet_;
        }
        // A full page ends there in either layout; the common one is taken then.
        if (packet_ == Setup && !inPacket_) headers_.setupOnFreshPage = page.lacing.size() < OggMaxSegments;
        return true;
    }

  private:
    enum Packet { Comment, Setup, SetupEnded };

    bool Append(std::string_view segment) {
        if (headers_.comment.size() + headers_.setup.size() + segment.size() > OggMaxHeaderLength)
            return false;
        (packet_ == Comment ? headers_.comment : headers_.setup).append(segment);
        return true;
    }

    OggHeaders& headers_;
    int packet_ = Comment;
    bool inPacket_ = false;
};

/// Lacing of a packet: full segments and one, maybe empty, that is not.
void AppendLacing(std::string& lacing, std::size_t length) {
    lacing.append(length / OggFullSegment, '\xFF');
    lacing += static_cast<char>(length % OggFullSegment);
}

std::size_t BodyLength(std::string_view lacing) {
    return std::accumulate(lacing.begin(), lacing.end(), std::size_t{0},
                           [](std::size_t sum, char segment) { return sum + SegmentLength(segment); });
}

/// The pages of the comment and the setup header.
class HeaderPages {
  public:
    HeaderPages(const OggHeaders& headers, std::string_view comment) {
        next_.serial = headers.serial;
        next_.number = headers.number + 1;
        if (headers.setupOnFreshPage) {
            Append({comment}, 0);
            Append({headers.setup}, headers.endsStream ? OggLastPage : 0);
        } else {
            Append({comment, headers.setup}, headers.endsStream ? OggLastPage : 0);
        }
    }

    const std::string& Bytes() const { return bytes_; }
    std::uint32_t Count() const { return count_; }

  private:
    /// Lays packets out on pages of their own, each page as full as it goes.
    void Append(std::initializer_list<std::string_view> packets, int lastFlags) {
        std::string lacing;
        std::string body;
        for (const std::string_view packet : packets) {
            AppendLacing(lacing, packet.size());
            body.append(packet);
        }
        std::size_t bodyAt = 0;
        for (std::size_t at = 0; at < lacing.size(); at += OggMaxSegments) {
            next_.lacing = std::string_view(lacing).substr(at, OggMaxSegments);
            next_.body = std::string_view(body).substr(bodyAt, BodyLength(next_.lacing));
            bodyAt += next_.body.size();
            const bool continued = at > 0 && !EndsPacket(lacing[at - 1]);
            const bool last = at + OggMaxSegments >= lacing.size();
            AppendPage((continued ? OggContinued : 0) | (last ? lastFlags : 0));
        }
    }

    void AppendPage(int flags) {
        next_.flags = ToByte(std::int64_t{flags});
        const bool packetEnds = std::any_of(next_.lacing.begin(), next_.lacing.end(), EndsPacket);
        next_.granulePosition = packetEnds ? 0 : NoPacketEnds;
        AppendOggPage(bytes_, next_);
        ++next_.number;
        ++count_;
    }

    OggPage next_;
    std::string bytes_;
    std::uint32_t count_ = 0;
};

/// Collects what is written, so that the system is asked once for many pages.
class PageWriter {
  public:
    explicit PageWriter(BinaryFile& destination) : destination_(destination) {}

    void Add(std::string_view bytes) { pending_.append(bytes); }

    void AddRenumbered(std::string_view page, std::uint32_t number) {
        Add(page);
        RenumberOggPage(std::span(pending_).last(page.size()), number);
    }

    void WriteWhenMuch() {
        if (pending_.size() >= WriteLength) WriteAll();
    }

    void WriteAll() {
        destination_.Write(pending_);
        pending_.clear();
    }

  private:
    BinaryFile& destination_;
    std::string pending_;
};

/// Programs that tag every file alike put it behind a stream too. It stays where it is.
bool IsID3v1(std::string_view bytes) {
    return bytes.size() == 128 && bytes.starts_with("TAG");
}

/// The pages behind the headers, each number moved by `shift`. False for a page that may not be there.
bool CopyPages(const OggHeaders& headers, std::uint32_t shift, OggPageReader& pages, PageWriter& writer) {
    bool ended = headers.endsStream;
    while (const auto page = pages.Next()) {
        if (ended || page->serial != headers.serial || page->Has(OggFirstPage)) return false;
        ended = page->Has(OggLastPage);
        if (shift == 0) {
            writer.Add(pages.PageBytes());
        } else {
            writer.AddRenumbered(pages.PageBytes(), page->number + shift);
        }
        writer.WriteWhenMuch();
    }
    const auto rest = pages.Rest();
    if (!rest || !(rest->empty() || IsID3v1(*rest))) return false;
    writer.Add(*rest);
    return true;
}

}  // namespace

std::optional<OggHeaders> ReadOggHeaders(OggPageReader& pages) {
    const auto first = pages.Next();
    if (!first || first->flags != OggFirstPage || !HoldsOnePacket(*first) ||
        !first->body.starts_with(OggIdentificationMarker))
        return std::nullopt;
    OggHeaders headers;
    headers.identificationPage = pages.PageBytes();
    headers.serial = first->serial;
    headers.number = first->number;
    HeaderGatherer gatherer(headers);
    while (!gatherer.Complete()) {
        const auto page = pages.Next();
        if (!page || headers.endsStream || page->serial != headers.serial || page->Has(OggFirstPage) ||
            page->number != headers.number + ++headers.pages || !gatherer.Add(*page))
            return std::nullopt;
        headers.endsStream = page->Has(OggLastPage);
    }
    if (!headers.setup.starts_with(OggSetupMarker)) return std::nullopt;
    return headers;
}

bool WriteOggStream(const OggHeaders& headers, std::string_view comment, OggPageReader& pages,
                    BinaryFile& destination) {
    const HeaderPages fresh(headers, comment);
    PageWriter writer(destination);
    writer.Add(headers.identificationPage);
    writer.Add(fresh.Bytes());
    if (!CopyPages(headers, fresh.Count() - headers.pages, pages, writer)) return false;
    writer.WriteAll();
    return true;
}

}  // namespace zefta
