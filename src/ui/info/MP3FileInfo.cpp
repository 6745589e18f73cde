#include "ui/info/MP3FileInfo.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "core/GenreTable.h"
#include "tags/TagText.h"
#include "ui/QtText.h"
#include "ui/info/Genres.h"

namespace zefta {

namespace {

/// Fields that both tags have, by their control in ID3v1; in ID3v2 "2" stands behind its name.
constexpr const char* SharedFields[] = {"txtTitle", "txtArtist", "txtAlbum",
                                        "txtYear",  "txtMix",    "txtTrackNumber"};

struct FieldWidth {
    const char* control;
    int characters;
};

/// What the fields of ID3v1 have room for.
constexpr FieldWidth WidthsOfID3v1[] = {
    {"txtTitle", 30}, {"txtArtist", 30}, {"txtAlbum", 30}, {"txtYear", 4}, {"txtMix", 30},
};

}  // namespace

MP3FileInfo::MP3FileInfo(App& app, const std::string& path, QWidget* parent)
    : InformationDialog(app, path, {"frmFileInfo", 33401, 33402}, parent) {
    auto* columns = new QHBoxLayout;
    columns->addLayout(MakeOwnColumn(), 1);
    columns->addWidget(MakeID3v2(), 1);
    Arrange(columns);
    connect(chkEnable_, &QCheckBox::toggled, this, &MP3FileInfo::chkEnable_Click);
    Form_Load();
    chkEnable_Click();
}

QBoxLayout* MP3FileInfo::MakeOwnColumn() {
    auto* column = new QVBoxLayout;
    column->addWidget(MakeFileBox());
    column->addWidget(MakeID3v1());
    column->addWidget(MakeLyrics());
    column->addStretch(1);
    return column;
}

QGroupBox* MP3FileInfo::MakeID3v1() {
    auto* box = new QGroupBox(Text(33403));
    auto* form = new QFormLayout(box);
    MakeFields(form, FieldsOfID3v1(), box->title());
    for (const FieldWidth& field : WidthsOfID3v1)
        box->findChild<QLineEdit*>(field.control)->setMaxLength(field.characters);
    cmbGenreWithIDs_ = new QComboBox;
    cmbGenreWithIDs_->setObjectName("cmbGenreWithIDs");
    FillGenresWithIDs(cmbGenreWithIDs_, Own(WindowText::InfoNoGenre));
    AddRow(form, 33421, cmbGenreWithIDs_, box->title());
    QPushButton* copy = MakeButton("cmdCopy1to2", Own(WindowText::InfoCopy1to2));
    form->addRow(copy);
    connect(copy, &QPushButton::clicked, this, &MP3FileInfo::cmdCopy1to2_Click);
    return box;
}

QGroupBox* MP3FileInfo::MakeLyrics() {
    fraLyrics_ = new QGroupBox(Own(WindowText::InfoLyrics3));
    fraLyrics_->setObjectName("fraLyrics");
    auto* form = new QFormLayout(fraLyrics_);
    for (const auto& [name, label] : {std::pair{"txtTitle3", 33404}, std::pair{"txtArtist3", 33405}}) {
        auto* line = new QLineEdit;
        line->setObjectName(name);
        line->setReadOnly(true);
        AddRow(form, label, line, fraLyrics_->title());
    }
    QPushButton* copy = MakeButton("cmdCopyLyricsto2", Own(WindowText::InfoCopyLyricsto2));
    form->addRow(copy);
    connect(copy, &QPushButton::clicked, this, &MP3FileInfo::cmdCopyLyricsto2_Click);
    return fraLyrics_;
}

QGroupBox* MP3FileInfo::MakeID3v2() {
    auto* box = new QGroupBox(Text(33411));
    auto* layout = new QVBoxLayout(box);
    chkEnable_ = new QCheckBox(Own(WindowText::InfoEnableID3v2));
    chkEnable_->setObjectName("chkEnable");
    layout->addWidget(chkEnable_);
    controlsOfID3v2_ = new QWidget;
    layout->addWidget(controlsOfID3v2_);
    layout->addStretch(1);
    auto* form = new QFormLayout(controlsOfID3v2_);
    form->setContentsMargins(0, 0, 0, 0);
    MakeFields(form, FieldsOfID3v2(), box->title());
    cmdCopy2to1_ = MakeButton("cmdCopy2to1", Own(WindowText::InfoCopy2to1));
    form->addRow(cmdCopy2to1_);
    form->addRow(MakeRemoveUnknownFrames());
    connect(cmdCopy2to1_, &QPushButton::clicked, this, &MP3FileInfo::cmdCopy2to1_Click);
    return box;
}

void MP3FileInfo::ShowMore(const FileInformation& information) {
    const ID3Tag& tag = information.Tag;
    ChooseGenre(cmbGenreWithIDs_, tag.Genre);
    chkEnable_->setChecked(information.EnableID3v2);
    fraLyrics_->setVisible(tag.LyricsPresent);
    Line("txtTitle3")->setText(ToQt(ShownText(tag.LyricsExtension.TrackTitle)));
    Line("txtArtist3")->setText(ToQt(ShownText(tag.LyricsExtension.Artist)));
}

void MP3FileInfo::TakeMore(FileInformation& information) const {
    information.Tag.Genre = ChosenGenre(cmbGenreWithIDs_);
    information.EnableID3v2 = chkEnable_->isChecked();
}

void MP3FileInfo::chkEnable_Click() {
    controlsOfID3v2_->setEnabled(chkEnable_->isChecked());
    cmdCopy2to1_->setEnabled(chkEnable_->isChecked());
}

void MP3FileInfo::cmdCopy1to2_Click() {
    for (const char* field : SharedFields)
        Line((QString(field) + "2").toUtf8().constData())->setText(Line(field)->text());
    const std::string genre = GenreNameFromIndex(ChosenGenre(cmbGenreWithIDs_));
    if (!genre.empty()) ShowGenre(ToQt(genre));
    chkEnable_->setChecked(true);
}

void MP3FileInfo::cmdCopy2to1_Click() {
    for (const char* field : SharedFields)
        Line(field)->setText(Line((QString(field) + "2").toUtf8().constData())->text());
    const int entry =
        cmbGenreWithIDs_->findText(Genre()->currentText(), Qt::MatchFixedString | Qt::MatchCaseSensitive);
    if (Genre()->findText(Genre()->currentText(), Qt::MatchFixedString | Qt::MatchCaseSensitive) >= 0)
        cmbGenreWithIDs_->setCurrentIndex(entry);
}

void MP3FileInfo::cmdCopyLyricsto2_Click() {
    const LyricsCopy copy =
        CopyOfLyrics(FromQt(Line("txtTitle3")->text()), FromQt(Line("txtArtist3")->text()));
    if (copy.title) Line("txtTitle2")->setText(ToQt(*copy.title));
    if (copy.mix) Line("txtMix2")->setText(ToQt(*copy.mix));
    if (copy.artist) Line("txtArtist2")->setText(ToQt(*copy.artist));
    if (copy.title || copy.mix || copy.artist) chkEnable_->setChecked(true);
}

}  // namespace zefta
