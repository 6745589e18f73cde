#include "fuzz/FuzzWorld.h"

#include <algorithm>

namespace zefta::fuzz {

FuzzWorld& FreshWorld() {
    static FuzzWorld world;
    world.files.files.clear();
    world.desktop.boxes.clear();
    world.desktop.questions.clear();
    world.desktop.reports.clear();
    return world;
}

WriterInput SplitInput(std::string_view input, const CodePage& ansi) {
    WriterInput split;
    if (input.empty()) return split;
    const auto length = std::min<std::size_t>(static_cast<unsigned char>(input[0]), input.size() - 1);
    std::string_view values = input.substr(1, length);
    split.file = input.substr(1 + length);
    while (!values.empty()) {
        const std::size_t end = std::min(values.find('|'), values.size());
        split.fields.push_back(ansi.Decode(values.substr(0, end)));
        values.remove_prefix(std::min(end + 1, values.size()));
    }
    return split;
}

}  // namespace zefta::fuzz
