#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>

#include "core/App.h"
#include "ui/cd/FolderLine.h"

class QBoxLayout;
class QGridLayout;

namespace zefta {

/// The controls of frmCDBase and how they stand. Each is called as its member; the tab key goes through them
/// as they are here.
struct CDBaseControls {
    QComboBox* cmbDrive;
    QPushButton* cmdBrowseForImage;
    QPushButton* cmdImportData;
    QPushButton* cmdCDDAE;
    QPushButton* cmdSimulateCD;
    FolderLine* txtSourceFolder;
    QPushButton* cmbBrowseForSourceFolder;

    FolderLine* txtTargetFolder;
    QPushButton* cmdBrowseForTargetFolder;
    QComboBox* cmbBitRate;
    QCheckBox* chkTrimSilence;
    QCheckBox* chkNormalize;
    QCheckBox* chkNormalizeSeparately;
    QCheckBox* chkReduceLevel;
    QCheckBox* chkDeleteAfterCompress;
    QCheckBox* chkNoPlaylists;
    QCheckBox* chkShutdown;

    QLineEdit* txtArtist;
    QLineEdit* txtAlbum;
    QLineEdit* txtYear;
    QLineEdit* txtLength;
    QComboBox* cmbGenre;
    QCheckBox* chkTreatAsCompilation;
    QListWidget* lstTracks;

    QLabel* lblStatus;
    QProgressBar* pbProgress;
    QPushButton* cmdStop;

    QPushButton* cmdSave;
    QPushButton* cmdLoad;
    QPushButton* cmdOK;
    QPushButton* cmdCancel;

    /// What can't be used while work is under way.
    QWidget* whole;
};

/// Fills the dialog. Texts are in the language of the run; no control has a value yet but the lists of genres
/// and drives that do not change.
CDBaseControls BuildCDBase(App& app, QDialog* dialog);

}  // namespace zefta
