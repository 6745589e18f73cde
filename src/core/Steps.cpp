#include "core/Steps.h"

#include <algorithm>
#include <ostream>
#include <string>

namespace zefta {

bool IsPreview(const App& app) {
    return app.steps != nullptr;
}

void TellStep(App& app, std::string_view line) {
    if (!IsPreview(app)) return;
    const auto isControl = [](char character) {
        return static_cast<unsigned char>(character) < 32 || character == 127;
    };
    std::string shown(line);
    std::replace_if(shown.begin(), shown.end(), isControl, ' ');
    *app.steps << shown << '\n';
}

}  // namespace zefta
