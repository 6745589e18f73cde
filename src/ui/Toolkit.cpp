#include "ui/Toolkit.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLibraryInfo>
#include <QStyle>
#include <QTimer>
#include <QTranslator>
#include <clocale>

#include "platform/FontConfiguration.h"
#include "ui/Beside.h"
#include "ui/OwnStyle.h"
#include "ui/Resources.h"

namespace zefta {

namespace {

/// The first text waits for all fonts of the system to be known, half of which needs the toolkit.
void LoadFirstFont(const QFont& font) {
    QFontMetrics(font).height();
}

constexpr int MillisecondsBehindPainting = 50;

/// Gives the windows their picture, which goes to the display in sizes from 16 to 128 pixels, when the first
/// one is painted: what it shows is waited for more.
class IconBehindPainting : public QObject {
  public:
    using QObject::QObject;

    bool eventFilter(QObject*, QEvent* event) override {
        if (event->type() == QEvent::Paint) {
            QCoreApplication::instance()->removeEventFilter(this);
            QTimer::singleShot(MillisecondsBehindPainting, this,
                               [] { QApplication::setWindowIcon(OwnIcon("zefta")); });
        }
        return false;
    }
};

std::unique_ptr<QApplication> MakeApplication() {
    const std::future<void> fonts = Beside(LoadFontConfiguration);
    // The toolkit keeps both for as long as it lives.
    static int count = 1;
    static char name[] = "zefta";
    static char* arguments[] = {name, nullptr};
    auto application = std::make_unique<QApplication>(count, arguments);
    // The toolkit takes over the locale; numbers of our formats have a point in every language.
    std::setlocale(LC_NUMERIC, "C");
    QApplication::setDesktopFileName("zefta");
    if (QApplication::style()->name() == OwnStyle::BaseName) QApplication::setStyle(new OwnStyle);
    application->installEventFilter(new IconBehindPainting(application.get()));
    return application;
}

/// The toolkit's own texts, such as those of its chooser of folders. Without a translation they stay English.
void TranslateToolkit(QApplication& application, Language language) {
    if (language != Language::Russian) return;
    auto* texts = new QTranslator(&application);
    if (texts->load("qtbase_ru", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(texts);
}

}  // namespace

Toolkit::Toolkit(Language language)
    : application_(MakeApplication()),
      desktop_(language),
      fonts_(Beside([font = QApplication::font()] { LoadFirstFont(font); })) {
    TranslateToolkit(*application_, language);
}

}  // namespace zefta
