#pragma once

#include <QSpinBox>
#include <cstdint>

namespace zefta {

/// A level of the normalising with its up-down buttons: stored in per cent, shown with its decibels, and
/// typed in either.
class LevelBox : public QSpinBox {
    Q_OBJECT

  public:
    /// `name`: of the buttons; `textName`: of the text within.
    LevelBox(const char* name, const char* textName, int percent);

    /// What is being typed counts too.
    std::uint8_t Percent();

  protected:
    QString textFromValue(int value) const override;
    int valueFromText(const QString& text) const override;
    QValidator::State validate(QString& text, int& position) const override;
};

}  // namespace zefta
