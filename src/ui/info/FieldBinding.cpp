#include "ui/info/FieldBinding.h"

#include "tags/TagText.h"
#include "ui/QtText.h"

namespace zefta {

void FieldBinding::Show(FileInformation& information) {
    read_ = field_.value(information);
    edit_->setText(ToQt(ShownText(read_)));
    edit_->setCursorPosition(0);
    shown_ = edit_->text();
}

void FieldBinding::Take(FileInformation& information) const {
    field_.value(information) = IsUntouched() ? read_ : FromQt(edit_->text());
}

}  // namespace zefta
