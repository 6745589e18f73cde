#pragma once

#include <QLineEdit>
#include <QObject>
#include <functional>

namespace zefta {

/// Keeps the focus in a line of entry whose text does not pass: it comes back when it goes to another control
/// of the window. A control to leave by, such as Cancel, may have it.
class YearGuard : public QObject {
    Q_OBJECT

  public:
    /// `passes` tells whether the text may stay; `rule` is said to the person when it may not.
    YearGuard(QLineEdit* edit, std::function<bool()> passes, QWidget* wayOut, const QString& rule);

    /// True when the focus may go; otherwise it is in the field, and the rule is said.
    bool Validate();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void CheckWhereFocusWent();

    QLineEdit* edit_;
    std::function<bool()> passes_;
    QWidget* wayOut_;
    QString rule_;
};

}  // namespace zefta
