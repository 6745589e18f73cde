// frmCDBase: rules that a load or the focus sets off, and jobs that end before they begin.

#include "ui/CDBaseStage.h"

namespace zefta::test {
namespace {

class CDBaseRulesTest : public CDBaseStage {
  protected:
    void Load(const std::string& text) {
        app.folder.Write("a.zfc", text);
        app.desktop.inputs = {app.folder / "a.zfc"};
        Click("cmdLoad");
    }

    int IndexOfMode(const char* label) const { return Find<QComboBox>("cmbBitRate")->findText(label); }
};

TEST_F(CDBaseRulesTest, Load_AppliesTheRuleOfTheEncoderThatItNames) {
    Open();
    EXPECT_TRUE(IsEnabled("chkReduceLevel"));
    const int ogg = IndexOfMode("Ogg Vorbis Q=5");
    ASSERT_GE(ogg, 0);
    Load("[Options]\nTracks=0\nBitrateIndex=" + std::to_string(ogg) + "\n");
    EXPECT_FALSE(IsEnabled("chkReduceLevel"));
    Load("[Options]\nTracks=0\nBitrateIndex=" + std::to_string(IndexOfMode("LAME 128 kbps")) + "\n");
    EXPECT_TRUE(IsEnabled("chkReduceLevel"));
}

TEST_F(CDBaseRulesTest, Load_OfAnOrdinaryAlbumTakesTheTickOfTheCompilationAway) {
    Open();
    Load("[Options]\nCompilation=1\n");
    EXPECT_TRUE(Check("chkTreatAsCompilation")->isChecked());
    Load("[Options]\nCompilation=0\n");
    EXPECT_FALSE(Check("chkTreatAsCompilation")->isChecked());
}

TEST_F(CDBaseRulesTest, Genre_ThatIsTypedBecomesItsEntryWhenTheFocusGoes) {
    Open();
    auto* genre = Find<QComboBox>("cmbGenre");
    EXPECT_EQ(genre->currentIndex(), -1);
    genre->setFocus();
    QTest::keyClicks(genre->lineEdit(), "Rock");
    EXPECT_EQ(genre->currentIndex(), -1);
    Find<QLineEdit>("txtArtist")->setFocus();
    EXPECT_EQ(FromQt(genre->itemText(genre->currentIndex())), "Rock");
}

TEST_F(CDBaseRulesTest, TargetThatCannotBeMade_IsToldAndTheMachineStaysOn) {
    app.folder.Write("file", "x");
    app.state.CompressCD_SourceFolder = app.folder.Path();
    app.state.CompressCD_TargetFolder = app.folder / "file/out";
    Open();
    app.desktop.inputs = {"1"};
    Click("cmdSimulateCD");
    Toggle("chkShutdown");
    Click("cmdOK");
    EXPECT_EQ(app.desktop.boxes.size(), 1U);
    EXPECT_TRUE(app.processes.runs.empty());
    EXPECT_EQ(powerOffs, 0);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(IsEnabled("cmdOK") && IsEnabled("cmdCancel"));
    EXPECT_EQ(Lines(), Texts{"*01.  (00:00)"}) << "to be tried again";
}

}  // namespace
}  // namespace zefta::test
