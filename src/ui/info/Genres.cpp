#include "ui/info/Genres.h"

#include <algorithm>

#include "core/GenreTable.h"
#include "ui/QtText.h"

namespace zefta {

QStringList GenreNames() {
    QStringList names;
    for (const std::string_view name : GenreTable) names.append(ToQt(name));
    names.sort(Qt::CaseInsensitive);
    return names;
}

void FillGenresWithIDs(QComboBox* box, const QString& none) {
    box->addItem(none, int{NoGenre});
    for (const QString& name : GenreNames()) box->addItem(name, int{GenreIndexFromName(name.toStdString())});
}

void ChooseGenre(QComboBox* box, std::uint8_t genre) {
    int entry = box->findData(int{genre});
    if (entry < 0) {
        entry = box->count();
        box->addItem("(" + QString::number(genre) + ")", int{genre});
    }
    box->setCurrentIndex(entry);
}

std::uint8_t ChosenGenre(const QComboBox* box) {
    const int genre = box->currentData().toInt();
    return static_cast<std::uint8_t>(std::clamp(genre, 0, int{NoGenre}));
}

}  // namespace zefta
