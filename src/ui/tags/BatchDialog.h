#pragma once

#include <QBoxLayout>
#include <QDialog>
#include <QPointer>
#include <QPushButton>
#include <QStatusBar>
#include <functional>
#include <string>

#include "core/App.h"
#include "ui/desktop/BatchView.h"

namespace zefta {

class GridView;

/// A dialog whose OK works on many files while it is shown: OKButton and CancelButton below its controls, and
/// the status bar stb. While the work runs nothing can be changed, and cmdCancelBatch in the place of
/// CancelButton, Escape and the closing of the window end it behind the file at hand; a second time they end
/// the outside tool that is at work on that file. A window that was closed goes as soon as the work has
/// ended.
class BatchDialog : public QDialog, public BatchView {
    Q_OBJECT

  public:
    void reject() override;

    /// The dialogs tell it themselves.
    void ShowBatch(std::size_t, std::size_t) override {}
    bool IsCancelled() const override { return isCancelled_; }
    bool WantsToolEnded() override;

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    /// Numbers of the usual texts of the buttons.
    static constexpr std::int32_t OkText = 33409;
    static constexpr std::int32_t CancelText = 33410;

    BatchDialog(App& app, const char* name, QWidget* parent);

    /// Of the window, behind the application's.
    void SetTitle(std::int32_t message);

    /// The controls above, the buttons below. OKButton answers the Enter key.
    void Arrange(QLayout* controls, std::int32_t okText, std::int32_t cancelText);

    /// What OKButton does.
    virtual void OKButton_Click() = 0;
    /// Whether closing would lose what the person has entered. CancelButton does not ask.
    virtual bool HasUnsaved() const { return false; }
    /// Its steps can be undone from every control that has none of its own.
    virtual GridView* Grid() const { return nullptr; }

    /// Runs the work with everything disabled. A run-time failure of it is shown; true when there was none.
    /// Behind it the dialog either ends or calls CloseIfAsked.
    bool Work(const std::function<void()>& work);
    void CloseIfAsked();
    void ShowStatus(const QString& text);

    App& Application() const { return app_; }
    QString Text(std::int32_t message) const;
    QPushButton* CancelButton() const { return cancelButton_; }

  private:
    void AddButtons(QBoxLayout* whole, std::int32_t okText, std::int32_t cancelText);
    void CancelButton_Click();
    void CancelBatch();
    void ShowCancelBatch(bool endsTool);
    void AskToEndTool();
    void SetWorking(bool working);
    void ShowHourglass(bool isShown);
    class Working;

    App& app_;
    QWidget* controls_;
    QPushButton* okButton_ = nullptr;
    QPushButton* cancelButton_ = nullptr;
    QPushButton* cancelBatch_ = nullptr;
    QStatusBar* stb_ = nullptr;
    QPointer<QWidget> focusBefore_;
    bool isWorking_ = false;
    bool isCancelled_ = false;
    bool closesBehindWork_ = false;
    bool hasHourglass_ = false;
    /// The button ends the tool at hand.
    bool offersToEndTool_ = false;
    bool endsTool_ = false;
};

}  // namespace zefta
