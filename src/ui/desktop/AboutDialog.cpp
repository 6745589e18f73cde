#include "ui/desktop/AboutDialog.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QStyleOptionFocusRect>
#include <QVBoxLayout>

#include "core/Boxes.h"
#include "core/Version.h"
#include "library/ReadableColour.h"
#include "ui/QtColour.h"
#include "ui/QtText.h"
#include "ui/Resources.h"
#include "ui/WindowTexts.h"

namespace zefta {

namespace {

/// The caption of a menu item as the text of something else: no letter in it marks a key.
QString CaptionWithoutKey(const std::string& caption) {
    return ToQt(caption).remove('&');
}

/// A label that is one link, for the keyboard too: the toolkit's own labels take the key twice before they
/// show which link has it.
class LinkLabel : public QLabel {
  public:
    explicit LinkLabel(const QString& address) : address_(address) {
        setTextFormat(Qt::RichText);
        ShowAddress();
        setTextInteractionFlags(Qt::LinksAccessibleByMouse);
        setFocusPolicy(Qt::StrongFocus);
    }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool opens =
            event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
        if (opens) {
            emit linkActivated(address_);
        } else {
            QLabel::keyPressEvent(event);
        }
    }

    void changeEvent(QEvent* event) override {
        QLabel::changeEvent(event);
        if (event->type() == QEvent::PaletteChange) ShowAddress();
    }

    void paintEvent(QPaintEvent* event) override {
        QLabel::paintEvent(event);
        if (!hasFocus()) return;
        QPainter painter(this);
        QStyleOptionFocusRect option;
        option.initFrom(this);
        style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
    }

  private:
    /// The toolkit's own colour of links is a dark blue on dark windows too.
    void ShowAddress() {
        const Colour readable =
            ReadableOn(FromQt(palette().color(QPalette::Window)), FromQt(palette().color(QPalette::Link)));
        const QString colour = ToQt(readable).name();
        const QString address = address_.toHtmlEscaped();
        setText(QString("<a href=\"%1\" style=\"color:%2\">%1</a>").arg(address, colour));
    }

    QString address_;
};

QLabel* MakeLabel(const char* objectName, const std::string& text) {
    auto* label = new QLabel(ToQt(text));
    label->setObjectName(objectName);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* MakeTitle() {
    QLabel* title = MakeLabel("lblTitle", ApplicationTitle());
    QFont large = title->font();
    constexpr double TimesTheText = 1.5;
    large.setPointSizeF(large.pointSizeF() * TimesTheText);
    large.setBold(true);
    title->setFont(large);
    return title;
}

QLabel* MakePicture() {
    constexpr int LinesHigh = 4;
    auto* picture = new QLabel;
    const int side = picture->fontMetrics().height() * LinesHigh;
    picture->setPixmap(OwnIcon("zefta").pixmap(QSize(side, side), picture->devicePixelRatio()));
    picture->setObjectName("picProgram");
    picture->setAccessibleName(ToQt(ApplicationTitle()));
    return picture;
}

}  // namespace

AboutDialog::AboutDialog(App& app, QWidget* parent) : QDialog(parent), app_(app) {
    setObjectName("frmAbout");
    setWindowTitle(CaptionWithoutKey(app.messages.GetMessage(32193)));
    auto* words = new QVBoxLayout;
    words->addWidget(MakeTitle());
    words->addWidget(MakeLabel("lblVersion", VersionText()));
    auto* head = new QHBoxLayout;
    head->addWidget(MakePicture());
    head->addLayout(words, 1);
    auto* links = new QFormLayout;
    AddLink(*links, "lblWWWKestrin", 32194, 5);
    AddLink(*links, "lblWWWProgram", 32195, 6);
    AddLink(*links, "lblWWWDownloads", 32196, 4);
    auto* buttons = new QDialogButtonBox;
    auto* ok = buttons->addButton(ToQt(app.messages.GetMessage(33716)), QDialogButtonBox::AcceptRole);
    ok->setObjectName("OKButton");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(head);
    rows->addLayout(links);
    rows->addWidget(buttons);
    ok->setFocus();
}

void AboutDialog::AddLink(QFormLayout& rows, const char* objectName, std::int32_t caption,
                          std::int32_t address) {
    auto* link = new LinkLabel(ToQt(app_.messages.GetMessage(address)));
    link->setObjectName(objectName);
    const QString name = CaptionWithoutKey(app_.messages.GetMessage(caption));
    link->setAccessibleName(name + ": " + ToQt(app_.messages.GetMessage(address)));
    connect(link, &QLabel::linkActivated, this, [this](const QString& page) {
        const std::string fullAddress = "http://" + FromQt(page);
        if (app_.desktop.OpenDocument(fullAddress)) return;
        ShowWarning(app_, FromQt(OwnText(app_, WindowText::NoBrowser)) + "\n" + fullAddress);
    });
    rows.addRow(name + ":", link);
}

void ShowAbout(App& app, QWidget* parent) {
    AboutDialog dialog(app, parent);
    dialog.exec();
}

}  // namespace zefta
