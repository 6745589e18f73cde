#pragma once

#include <QCheckBox>
#include <QString>
#include <functional>
#include <string>
#include <vector>

#include "core/App.h"
#include "core/SetupOptions.h"
#include "ui/WindowTexts.h"

namespace zefta {

/// What the pages of the options dialog fill and take: each control shows a field of the options when it is
/// made, and gives it back when the person says OK.
class SetupBinding {
  public:
    SetupBinding(App& theApp, SetupOptions& theOptions) : app(theApp), options(theOptions) {}

    /// A box of that name; the field has to live as long as the binding.
    QCheckBox* Check(const char* name, const QString& text, bool& field);

    /// `take` is to bring a control back into the options.
    void OnTake(std::function<void()> take) { takers_.push_back(std::move(take)); }
    void Take() const;

    QString Text(std::int32_t message, const std::string& parameter = {}) const;
    QString Own(WindowText text) const { return OwnText(app, text); }

    App& app;
    SetupOptions& options;

  private:
    std::vector<std::function<void()>> takers_;
};

/// A box without a field.
QCheckBox* MakeCheck(const char* name, const QString& text, bool checked);

}  // namespace zefta
