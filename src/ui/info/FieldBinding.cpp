#include "ui/info/FieldBinding.h"

#include "tags/TagText.h"
#include "ui/QtText.h"

namespace zefta {

namespace {

/// A line of entry takes seconds for each million characters.
constexpr qsizetype LongestEdited = 100'000;

}  // namespace

void FieldBinding::Show(FileInformation& information) {
    read_ = field_.value(information);
    const QString text = ToQt(ShownText(read_));
    edit_->setReadOnly(text.size() > LongestEdited);
    edit_->setText(text.left(LongestEdited));
    edit_->setCursorPosition(0);
    shown_ = edit_->text();
}

void FieldBinding::Take(FileInformation& information) const {
    field_.value(information) = IsUntouched() ? read_ : FromQt(edit_->text());
}

}  // namespace zefta
