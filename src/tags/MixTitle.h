#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zefta {

/// A title and the mix that formats without a field for it keep in round brackets behind it.
struct MixTitle {
    std::string title;
    std::string mix;
};

/// "Song (Live)" is the title "Song" and the mix "Live": what the last "(" and the ")" at the very end
/// enclose, both parts trimmed. Nothing when the text does not end so; title and mix then stay as they are.
std::optional<MixTitle> SplitMix(std::string_view text);

/// The reverse, of trimmed parts: the title alone when there is no mix, the mix in its brackets alone when
/// there is no title.
std::string JoinMix(std::string_view title, std::string_view mix);

}  // namespace zefta
