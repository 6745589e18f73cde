#include "core/Boxes.h"

#include <new>

#include "core/Version.h"
#include "platform/RuntimeError.h"

namespace zefta {

namespace {

void WarnOf(App& app, const RuntimeError& error) {
    ShowWarning(app,
                app.messages.GetMessage(1000, std::to_string(error.Number()), app.ansi.ToText(error.Text())));
}

}  // namespace

void ShowParamsError(App& app) {
    app.desktop.ShowBox(BoxKind::Critical, app.messages.GetMessage(1005), ApplicationTitle());
}

void ShowWarning(App& app, const std::string& text) {
    app.desktop.ShowBox(BoxKind::Warning, text, ApplicationTitle());
}

void ShowPlainBox(App& app, const std::string& text) {
    app.desktop.ShowBox(BoxKind::Plain, text, ApplicationTitle());
}

bool CheckRuntimeError(App& app, const std::function<void()>& step) {
    try {
        step();
        return false;
    } catch (const RuntimeError& error) {
        WarnOf(app, error);
    } catch (const std::bad_alloc&) {
        WarnOf(app, RuntimeError(ErrorNumber::OutOfMemory));
    }
    return true;
}

bool AskYesNo(App& app, const std::string& text, const std::string& title, bool defaultSecond) {
    return app.desktop.AskQuestion(text, title.empty() ? ApplicationTitle() : title, defaultSecond);
}

}  // namespace zefta
