#pragma once

#include <QLabel>
#include <QLineEdit>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "library/ChangeTags.h"
#include "ui/tags/BatchDialog.h"

namespace zefta {

class GenreBox;
class YearGuard;

/// The files of the list that an update of tags is about; names as the file system has them.
struct TagFiles {
    std::string folder;
    std::vector<std::string> selected;
    /// All of the list.
    std::vector<std::string> all;
};

/// What hears that a file has been dealt with.
using FileDone = std::function<void(const std::string& name)>;

/// frmChangeTags, the massive tags update: the same values into the tags of many files. An empty field leaves
/// the files' own alone.
class ChangeTagsDialog : public BatchDialog {
    Q_OBJECT

  public:
    ChangeTagsDialog(App& app, TagFiles files, FileDone done, QWidget* parent);

  protected:
    void OKButton_Click() override;
    bool HasUnsaved() const override;

  private:
    QWidget* MakeFields();
    TagValues Values() const;
    /// False when it was ended.
    bool Update(const TagValues& values);

    TagFiles files_;
    /// What the person has said the update means and has not been dealt with; nothing ahead of the first one.
    std::optional<std::vector<std::string>> left_;
    FileDone done_;
    QLineEdit* txtArtist_ = nullptr;
    QLineEdit* txtTitle_ = nullptr;
    QLineEdit* txtMix_ = nullptr;
    QLineEdit* txtAlbum_ = nullptr;
    QLineEdit* txtYear_ = nullptr;
    GenreBox* cmbGenre_;
    YearGuard* year_ = nullptr;
    QLabel* lblNote_;
};

}  // namespace zefta
