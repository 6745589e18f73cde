#include "ui/WindowTexts.h"

#include <array>

namespace zefta {

namespace {

struct Row {
    WindowText text;
    const char* english;
    const char* russian;
};

constexpr std::array Rows = {
    // clang-format off
    Row{WindowText::FolderIsEmpty, "No subfolders or audio files here", "Здесь нет ни папок, ни звуковых файлов"},
    Row{WindowText::FolderIsUnreadable, "This folder can't be read", "Эту папку не удаётся прочитать"},
    Row{WindowText::FileList, "Files of the folder", "Файлы папки"},
    Row{WindowText::FolderLabel, "Fol&der:", "Пап&ка:"},
    Row{WindowText::FolderBox, "Folder", "Папка"},
    Row{WindowText::DriveBox, "Drives and media", "Диски и носители"},
    Row{WindowText::BrowseFolder, "Choose a folder", "Выбрать папку"},
    Row{WindowText::StatusProgress, "What is at hand", "Что делается"},
    Row{WindowText::StatusCount, "Number of files", "Число файлов"},
    Row{WindowText::StatusSize, "Size of the files", "Размер файлов"},
    Row{WindowText::StatusMore, "More", "Прочее"},
    Row{WindowText::KindUp, "Folder above", "Папка уровнем выше"},
    Row{WindowText::KindFolder, "Folder", "Папка"},
    Row{WindowText::KindPlaylist, "Playlist", "Плейлист"},
    Row{WindowText::KindWave, "WAV file", "Файл WAV"},
    Row{WindowText::KindMP3, "MP3 file", "Файл MP3"},
    Row{WindowText::KindOgg, "Ogg Vorbis file", "Файл Ogg Vorbis"},
    Row{WindowText::KindMPEGplus, "MPEGplus file", "Файл MPEGplus"},
    Row{WindowText::KindLqt, "LQT file", "Файл LQT"},
    Row{WindowText::RawWave, "No WAV header was found", "Заголовок WAV не найден"},
    Row{WindowText::RateHighest, "Very high bitrate (from 300 kbps)", "Очень высокий битрейт (от 300 кбит/с)"},
    Row{WindowText::RateHigh, "High bitrate (211 to 299 kbps)", "Высокий битрейт (211–299 кбит/с)"},
    Row{WindowText::RateMiddle, "Good bitrate (151 to 210 kbps)", "Хороший битрейт (151–210 кбит/с)"},
    Row{WindowText::RateUsual, "Usual bitrate (113 to 150 kbps)", "Обычный битрейт (113–150 кбит/с)"},
    Row{WindowText::RateLow, "Low bitrate (below 113 kbps)", "Низкий битрейт (ниже 113 кбит/с)"},
    Row{WindowText::ThisYear, "Of this year", "Этого года"},
    Row{WindowText::LastYear, "Of last year", "Прошлого года"},
    Row{WindowText::InfoFileName, "File name", "Имя файла"},
    Row{WindowText::InfoNoGenre, "No genre", "Без жанра"},
    Row{WindowText::InfoEnableID3v2, "Write an ID3v2 tag", "Записывать тег ID3v2"},
    Row{WindowText::InfoCopy1to2, "Copy to ID3v2", "Скопировать в ID3v2"},
    Row{WindowText::InfoCopy2to1, "Copy to ID3v1", "Скопировать в ID3v1"},
    Row{WindowText::InfoCopyLyricsto2, "Copy Lyrics3 to ID3v2", "Скопировать Lyrics3 в ID3v2"},
    Row{WindowText::InfoLyrics3, "Lyrics3", "Lyrics3"},
    Row{WindowText::InfoYearRule, "A year is a plain number, such as 1999, or nothing", "Год - это простое число, например 1999, или пусто"},
    Row{WindowText::InfoMeasures, "Measures of the file", "Параметры файла"},
    Row{WindowText::InfoVendor, "Made with", "Создан с помощью"},
    Row{WindowText::InfoExComKeys, "F2 or a double click edits, Insert adds, Delete removes", "F2 или двойной щелчок - правка, Insert - добавить, Delete - удалить"},
    Row{WindowText::InfoWouldLose, "The tag of this file holds more than can be carried over, and some of it would be lost.\n\nContinue anyway?", "Тег этого файла содержит больше, чем можно перенести, и часть данных будет потеряна.\n\nВсё равно продолжить?"},
    Row{WindowText::InfoRefusedOgg, "This file is no whole, sound and single Ogg Vorbis stream. It stays as it is.", "Этот файл - не целый, исправный и единственный поток Ogg Vorbis. Он остался без изменений."},
    Row{WindowText::ToolBar, "Tools", "Инструменты"},
    Row{WindowText::CancelBatch, "Cancel", "Отмена"},
    Row{WindowText::CancelBatchTip, "Ends behind the file at hand (Esc)", "Завершить после текущего файла (Esc)"},
    Row{WindowText::NoPlayer, "No program could be started that plays it.", "Не удалось запустить программу для воспроизведения."},
    Row{WindowText::NoNotificationArea, "The desktop has no notification area. The agent runs without its icon there.", "На рабочем столе нет области уведомлений. Агент работает без значка."},
    Row{WindowText::PowerOffRefused, "The computer could not be powered off.", "Не удалось выключить компьютер."},
    Row{WindowText::NoBrowser, "No program was found that opens web pages:", "Не найдена программа для просмотра веб-страниц:"},
    Row{WindowText::BoxOk, "OK", "ОК"},
    Row{WindowText::BoxYes, "&Yes", "&Да"},
    Row{WindowText::BoxNo, "&No", "&Нет"},
    Row{WindowText::BoxCancel, "&Cancel", "О&тмена"},
    Row{WindowText::ProgressCancelTip, "Ends the work when the file at hand is done", "Завершает работу, когда текущий файл будет готов"},
    Row{WindowText::ProgressEnding, "Ending...", "Завершение..."},
    Row{WindowText::ProgressFileName, "File at hand", "Текущий файл"},
    Row{WindowText::ProgressOfFile, "Progress of this file", "Ход работы над файлом"},
    Row{WindowText::ProgressOfAll, "Progress of the whole work", "Ход всей работы"},
    Row{WindowText::TrimPicture, "Waveform; what is trimmed at both ends is shaded", "Форма волны; обрезаемое с обоих концов затенено"},
    Row{WindowText::ToolOutput, "Output of the tools", "Вывод программ"},
    Row{WindowText::InfoTooLong, "Too long to be edited here: this is its beginning", "Слишком длинно для правки здесь: показано начало"},
    Row{WindowText::CDDrive, "Drive or image of a disc", "Дисковод или образ диска"},
    Row{WindowText::CDDriveTip, "A drive such as /dev/sr0, or an image: .cue, .nrg or .toc", "Дисковод, например /dev/sr0, или образ: .cue, .nrg или .toc"},
    Row{WindowText::CDFirstDrive, "First drive", "Первый дисковод"},
    Row{WindowText::CDChooseImage, "Choose an image of a disc", "Выбрать образ диска"},
    Row{WindowText::CDImages, "Images of discs", "Образы дисков"},
    Row{WindowText::CDTracks, "Tracks", "Дорожки"},
    Row{WindowText::CDTracksTip, "Ticked tracks are compressed. A double click or F2 edits a name.", "Отмеченные дорожки будут сжаты. Двойной щелчок или F2 - правка названия."},
    Row{WindowText::CDStopTip, "Ends the work behind the track at hand (Esc)", "Завершить работу после текущей дорожки (Esc)"},
    Row{WindowText::CDUnknown, "The database does not know this disc.", "В базе данных нет этого диска."},
    Row{WindowText::CDDatabaseFailed, "The database could not be asked.", "Не удалось обратиться к базе данных."},
    Row{WindowText::CDMatches, "Several entries fit this disc. Which one is it?", "Диску соответствует несколько записей. Какая из них верная?"},
    Row{WindowText::CDNoMatch, "None of them", "Ни одна из них"},
    Row{WindowText::CDFreeNames, "Names of tracks give a title when they are written as \"Title / Mix\", of a compilation as \"Artist / Title\". These are not:\n\n%1\n\nTake what they hold as the title all the same? With No they get none, or one with the slash.", "Название дорожки даёт заголовок, если записано как \"Название / Микс\", в сборнике как \"Исполнитель / Название\". Здесь не так:\n\n%1\n\nВсё равно считать заголовком то, что в них есть? Если нет, он останется пустым или с косой чертой."},
    Row{WindowText::CDGrabbing, "Reading track %1 of %2...", "Чтение дорожки %1 из %2..."},
    Row{WindowText::CDGrabbed, "The tracks are in the source folder.", "Дорожки записаны в исходную папку."},
    Row{WindowText::CDCompressed, "Tracks compressed: %1 of %2.", "Сжато дорожек: %1 из %2."},
    Row{WindowText::CDStopped, "Ended before it was done.", "Завершено досрочно."},
    Row{WindowText::SetupPriorityIdle, "Idle", "Низкий"},
    Row{WindowText::SetupPriorityNormal, "Normal", "Обычный"},
    Row{WindowText::SetupPriorityHigh, "High", "Высокий"},
    Row{WindowText::SetupBrowseFolder, "Choose the folder", "Выбрать папку"},
    Row{WindowText::SetupBrowseFile, "Choose the file", "Выбрать файл"},
    Row{WindowText::SetupOggQuality, "Quality of Ogg Vorbis", "Качество Ogg Vorbis"},
    Row{WindowText::RenameRules, "Naming rule", "Правило именования"},
    Row{WindowText::RenameFiles, "Files", "Файлы"},
    Row{WindowText::RenameLegend, "In a template", "В шаблоне"},
    Row{WindowText::RenameLegendArtist, "artist", "исполнитель"},
    Row{WindowText::RenameLegendTitle, "title", "название"},
    Row{WindowText::RenameLegendMix, "mix", "микс"},
    Row{WindowText::RenameLegendYear, "year", "год"},
    Row{WindowText::RenameLegendAlbum, "album", "альбом"},
    Row{WindowText::RenameLegendTrack, "track number: 07", "номер дорожки: 07"},
    Row{WindowText::RenameLegendTrack3, "track number: 007", "номер дорожки: 007"},
    Row{WindowText::RenameLegendPlain, "plain letters and digits only", "только простые буквы и цифры"},
    Row{WindowText::RenameLegendWithoutBlanks, "the same, with _ for blanks", "то же, с _ вместо пробелов"},
    Row{WindowText::RenameLegendBrackets, "empty (), [] and {} vanish", "пустые (), [] и {} исчезают"},
    Row{WindowText::RenamePreview, "What would happen", "Что произойдёт"},
    Row{WindowText::RenameOldName, "Old name", "Старое имя"},
    Row{WindowText::RenameNewName, "New name", "Новое имя"},
    Row{WindowText::RenameNote, "Note", "Примечание"},
    Row{WindowText::RenameWorking, "Looking at the files...", "Просмотр файлов..."},
    Row{WindowText::RenameMask, "Mask", "Маска"},
    Row{WindowText::RenameTaken, "name taken, numbered", "имя занято, добавлен номер"},
    Row{WindowText::RenameUnchanged, "stays as it is", "остаётся как есть"},
    Row{WindowText::RenameNoTags, "holds neither artist nor title", "нет ни исполнителя, ни названия"},
    Row{WindowText::RenameUnreadable, "can't be read", "не удаётся прочитать"},
    Row{WindowText::RenameNoKind, "no kind of file that has tags", "файл такого вида не имеет тегов"},
    Row{WindowText::RenameNoFile, "no such file", "нет такого файла"},
    Row{WindowText::RenameNoText, "no text of lines", "не текст из строк"},
    Row{WindowText::RenameLines, "lines that change:", "изменится строк:"},
    Row{WindowText::RenameSummary, "Get a new name: %1. Keep theirs: %2.", "Получат новое имя: %1. Останутся: %2."},
    Row{WindowText::RenameWouldEnd, "The work would end there:", "Работа на этом завершится:"},
    Row{WindowText::EndTool, "End the program", "Прервать программу"},
    Row{WindowText::EndToolTip, "Ends the encoder or decoder that is at work (Esc)", "Прервать работающий кодировщик или декодер (Esc)"},
    Row{WindowText::EndToolQuestion, "End the encoder or decoder that is at work?\n\nWhat it has made of the file at hand is deleted; the source stays.", "Прервать работающий кодировщик или декодер?\n\nТо, что он успел сделать из текущего файла, будет удалено; исходный файл останется."},
    Row{WindowText::InfoChanged, "Another program has changed the tags of this file since they were shown here.\n\nWrite over its changes?", "Другая программа изменила теги этого файла после того, как они были показаны здесь.\n\nЗаписать поверх её изменений?"},
    Row{WindowText::BoxCancelRest, "&Cancel the rest", "О&тменить остальное"},
    Row{WindowText::GridUndo, "&Undo", "&Отменить"},
    Row{WindowText::GridRedo, "&Redo", "&Вернуть"},
    Row{WindowText::GridCut, "Cu&t", "В&ырезать"},
    Row{WindowText::GridCopy, "&Copy", "&Копировать"},
    Row{WindowText::GridPaste, "&Paste", "В&ставить"},
    Row{WindowText::GridClear, "C&lear", "О&чистить"},
    Row{WindowText::GridKeys, "Typing, F2 or a double click edits; Enter goes down, Tab to the next cell, Ctrl+Tab out of the table", "Ввод текста, F2 или двойной щелчок - правка; Enter - вниз, Tab - к следующей ячейке, Ctrl+Tab - выйти из таблицы"},
    Row{WindowText::GridCell, "Text of the cell", "Текст ячейки"},
    Row{WindowText::TagsGrid, "Tags of the files", "Теги файлов"},
    Row{WindowText::TagsGenreRule, "Choose a genre of the list, or none", "Выберите жанр из списка или оставьте поле пустым"},
    Row{WindowText::TagsDiscard, "The table has changes that were not written.\n\nClose all the same?", "В таблице есть незаписанные изменения.\n\nВсё равно закрыть?"},
    Row{WindowText::TagsGenreTip, "A genre of the list; empty for none", "Жанр из списка; пусто - без жанра"},
    Row{WindowText::TagsNotWritten, "Files that were not written: %1. What was entered for them is still here.", "Незаписанных файлов: %1. Введённое для них осталось здесь."},
    Row{WindowText::TagsNotEncoded, "Files that were not encoded: %1. What was entered for them is still here.", "Незакодированных файлов: %1. Введённое для них осталось здесь."},
    Row{WindowText::EncodeReplace, "These files are there already and will be written over, with their tags:\n\n%1\n\nEncode all the same?", "Эти файлы уже есть и будут записаны заново вместе с тегами:\n\n%1\n\nВсё равно кодировать?"},
    Row{WindowText::CDDiscard, "What was entered for this album is neither saved nor compressed and will be lost.\n\nGo on all the same?", "Введённое для этого альбома не сохранено и не сжато и будет потеряно.\n\nВсё равно продолжить?"},
    Row{WindowText::CDBeginWithout, "Begin without these titles?", "Начать без этих названий?"},
    // clang-format on
};

/// A row in the wrong place would give another text than was asked for.
constexpr bool StandInOrder() {
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        if (Rows[i].text != static_cast<WindowText>(i)) return false;
    }
    return Rows.size() == static_cast<std::size_t>(WindowText::Count);
}
static_assert(StandInOrder());

}  // namespace

QString OwnText(Language language, WindowText text) {
    const Row& row = Rows.at(static_cast<std::size_t>(text));
    return QString::fromUtf8(language == Language::Russian ? row.russian : row.english);
}

QString OwnText(const App& app, WindowText text) {
    return OwnText(app.messages.BuiltInLanguage(), text);
}

}  // namespace zefta
