#pragma once

#include <QComboBox>
#include <string>
#include <vector>

#include "core/App.h"

class QStringListModel;

namespace zefta {

/// cmbPath: the path of the folder, which the person may type over, above the list of recent ones. A name
/// that is no text in Unicode is shown as text and still leads to its folder.
class PathBox : public QComboBox {
    Q_OBJECT

  public:
    explicit PathBox(App& app, QWidget* parent = nullptr);

    void ShowPath(const std::string& path);

    /// The items, from the top.
    std::vector<std::string> History() const;
    void SetHistory(const std::vector<std::string>& folders);
    /// At the top, unless there is an equal item.
    void Remember(const std::string& path);

  signals:
    /// Typed, with the closing Enter.
    void PathTyped(const std::string& path);
    /// Taken from the list.
    void PathChosen(const std::string& path);
    /// The person wants none of it.
    void Left();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    /// The bytes that the text stands for.
    std::string PathOf(const QString& text) const;
    void OfferSubfolders(const QString& text);

    App& app_;
    QStringListModel* offers_;
    /// Whose subfolders are offered.
    std::string offeredFolder_;
    std::string path_;
};

}  // namespace zefta
