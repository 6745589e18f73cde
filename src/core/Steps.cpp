#include "core/Steps.h"

#include <ostream>

namespace zefta {

namespace {

bool IsLineEnd(char character) {
    return character == '\r' || character == '\n';
}

bool IsControl(char character) {
    return static_cast<unsigned char>(character) < 32 || character == 127;
}

}  // namespace

bool IsPreview(const App& app) {
    return app.steps != nullptr;
}

std::string OneLine(std::string_view text) {
    std::string line;
    bool wasLineEnd = false;
    for (const char character : text) {
        const bool isLineEnd = IsLineEnd(character);
        if (!isLineEnd || !wasLineEnd) line += IsControl(character) ? ' ' : character;
        wasLineEnd = isLineEnd;
    }
    return line;
}

void TellStep(App& app, std::string_view line) {
    if (IsPreview(app)) *app.steps << OneLine(line) << '\n';
}

}  // namespace zefta
