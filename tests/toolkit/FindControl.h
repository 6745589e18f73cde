#pragma once

#include <QWidget>
#include <stdexcept>
#include <string>

namespace zefta::test {

/// The control of that name; a test that looks for none fails by its name.
template <typename Control>
Control& FindControl(const QWidget& window, const std::string& name) {
    auto* control = window.findChild<Control*>(QString::fromStdString(name));
    if (control == nullptr) throw std::out_of_range(name);
    return *control;
}

}  // namespace zefta::test
