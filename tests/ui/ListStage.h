#pragma once

#include <QComboBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include "support/Mp3Builder.h"
#include "support/TagBuilders.h"
#include "support/TestApp.h"
#include "support/WavBuilder.h"
#include "toolkit/FindControl.h"
#include "ui/QtText.h"
#include "ui/list/FileListModel.h"
#include "ui/list/FileListView.h"
#include "ui/list/FolderBrowser.h"
#include "ui/list/StatusPanels.h"

namespace zefta::test {

/// The file list on a folder of its own.
class ListStage : public ::testing::Test {
  protected:
    void Open() { browser.ShowFirstFolder(app.folder.Path()); }

    void OpenWhole() {
        Open();
        browser.FinishScan();
    }

    QString Cell(const std::string& name, ListColumn column, int role = Qt::DisplayRole) const {
        const QAbstractItemModel& model = *browser.View()->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            if (NameAt(row) == name) return model.index(row, static_cast<int>(column)).data(role).toString();
        }
        return "no such row";
    }

    QVariant CellData(const std::string& name, ListColumn column, int role) const {
        const QAbstractItemModel& model = *browser.View()->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            if (NameAt(row) == name) return model.index(row, static_cast<int>(column)).data(role);
        }
        return "no such row";
    }

    std::string NameAt(int row) const {
        return FromQt(browser.View()->model()->index(row, 0).data().toString());
    }

    std::vector<std::string> Names() const {
        std::vector<std::string> names;
        for (int row = 0; row < browser.View()->model()->rowCount(); ++row) names.push_back(NameAt(row));
        return names;
    }

    std::vector<std::string> SelectedNames() const {
        std::vector<std::string> names;
        for (const BrowserRow& row : browser.SelectedRows()) names.push_back(row.name);
        return names;
    }

    QPoint PointOn(const std::string& name) const {
        const QAbstractItemModel& model = *browser.View()->model();
        for (int row = 0; row < model.rowCount(); ++row) {
            if (NameAt(row) == name) return browser.View()->visualRect(model.index(row, 0)).center();
        }
        return {-1, -1};
    }

    void Show() {
        browser.resize(800, 500);
        browser.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&browser));
    }

    template <typename Control>
    Control& Child(const char* name) const {
        return FindControl<Control>(browser, name);
    }

    std::string PathText() const { return FromQt(Child<QComboBox>("cmbPath").currentText()); }

    TestApp app;
    StatusPanels panels{app};
    FolderBrowser browser{app, panels};
};

using Texts = std::vector<std::string>;

}  // namespace zefta::test
