#pragma once

#include <QComboBox>
#include <QStringList>
#include <cstdint>

namespace zefta {

/// The names of all genres, by name.
QStringList GenreNames();

/// Fills the box with all genres, each with its number as data, and `none` with that of no genre.
void FillGenresWithIDs(QComboBox* box, const QString& none);

/// Chooses the genre of that number. One without a name becomes an entry of its own, so that it stays.
void ChooseGenre(QComboBox* box, std::uint8_t genre);

std::uint8_t ChosenGenre(const QComboBox* box);

}  // namespace zefta
