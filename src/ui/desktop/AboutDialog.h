#pragma once

#include <QDialog>
#include <cstdint>

#include "core/App.h"

class QFormLayout;

namespace zefta {

/// frmAbout: what the program is, its version, and where it lives on the web.
class AboutDialog : public QDialog {
    Q_OBJECT

  public:
    explicit AboutDialog(App& app, QWidget* parent = nullptr);

  private:
    void AddLink(QFormLayout& rows, const char* objectName, std::int32_t caption, std::int32_t address);

    App& app_;
};

/// Shows the dialog; returns when it is closed.
void ShowAbout(App& app, QWidget* parent);

}  // namespace zefta
