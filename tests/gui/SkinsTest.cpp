#include "browser/frmNWDialog.h"
#include "fakes/MemoryNetwork.h"
#include "fakes/Text.h"
#include "gui/TestDesktop.h"
#include "gui/WindowDriver.h"
#include "skins/frmCustomizeSkin.h"

#include <QScrollBar>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// Runs of the program, one after the other, with one settings file.
class SkinStory : public testing::Test {
protected:
    struct Run : TestDesktop {
        explicit Run(SkinStory& story)
            : window(ServicesIn(story.folder.path(), story.network)), driver(window) {
            driver.Open();
        }
        ~Run() { EXPECT_TRUE(window.close()); }

        void Choose(int skin) { Item(skin).trigger(); }
        QAction& Item(int skin) {
            return driver.Find<QAction>(qPrintable(QStringLiteral("mnuSkin(%1)").arg(skin)));
        }
        /// The one that is checked.
        int Chosen() {
            int chosen = -1;
            for (int skin = 0; skin <= 5; ++skin) {
                if (!Item(skin).isChecked())
                    continue;
                EXPECT_EQ(chosen, -1) << "more than one";
                chosen = skin;
            }
            return chosen;
        }
        bool CanAdjust() { return driver.Find<QAction>("mnuSkinCust").isEnabled(); }
        QColor Background() { return window.palette().color(QPalette::Window); }

        frmNetrove window;
        WindowDriver driver;
    };

    void SetUp() override {
        network.AddNode(QString(), NetEnum::DisplayNetwork, Text("Net"));
        network.AddNode(Text("Net"), NetEnum::DisplayDomain, Text("WG"));
        network.AddNode(Text("WG"), NetEnum::DisplayServer, Text("\\\\S"));
        network.AddNode(Text("\\\\S"), NetEnum::DisplayShare, Text("\\\\S\\D"));
        for (const char* file : {"\\\\S\\D\\one.mp3", "\\\\S\\D\\SUB\\two.mp3"})
            network.AddFile(Text(file));
    }

    QString Stored(const char* section, const char* key) {
        return ProfileFile(IniFileName(folder.path())).ReadIni(Text(section), Text(key), Text("-"));
    }
    void Store(const char* section, const char* key, const char* value) {
        ProfileFile(IniFileName(folder.path())).WriteIni(Text(section), Text(key), Text(value));
    }

    QTemporaryDir folder;
    MemoryNetwork network;
};

TEST_F(SkinStory, ChoiceAndAdjustmentsSurvive) {
    const QSize size(790, 520);
    {
        Run first(*this);
        EXPECT_EQ(first.Chosen(), 1) << "a first start";
        EXPECT_EQ(first.Background(), QColor(0, 0, 0));
        first.Choose(2);
        QTimer::singleShot(0, &first.window, [] {
            auto* dialog = qobject_cast<frmCustomizeSkin*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            EXPECT_FALSE(dialog->contentsMargins().isNull()) << "has a frame of its own";
            dialog->findChild<QCheckBox*>(Text("chkAdjustRGB"))->setChecked(true);
            dialog->findChild<QScrollBar*>(Text("hscRed"))->setValue(0);
            QTest::mouseClick(dialog->findChild<QWidget*>(Text("cmdOk")), Qt::LeftButton);
        });
        first.driver.Find<QAction>("mnuSkinCust").trigger();
        EXPECT_EQ(first.Background(), QColor(0, 189, 214)) << "all red is gone";
        EXPECT_EQ(Stored("SkinProperties_2", "PercentRed"), Text("-1")) << "at once";
        EXPECT_EQ(Stored("Skin", "Index"), Text("-")) << "at the end only";
        first.window.resize(size);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(Stored("Skin", "Index"), Text("2"));
    {
        Run second(*this);
        EXPECT_EQ(second.Chosen(), 2);
        EXPECT_TRUE(second.CanAdjust());
        EXPECT_EQ(second.Background(), QColor(0, 189, 214));
        EXPECT_EQ(second.window.size(), size);
        second.Choose(0);
        EXPECT_FALSE(second.CanAdjust());
        EXPECT_EQ(second.Background(), QApplication::palette().color(QPalette::Window));
    }
    EXPECT_EQ(Stored("Skin", "Index"), Text("0"));
    EXPECT_EQ(Stored("SkinProperties_2", "PercentRed"), Text("-1"));
    EXPECT_EQ(Stored("SkinProperties_0", "Name"), Text("-"));
    Run third(*this);
    EXPECT_EQ(third.Chosen(), 0);
    EXPECT_FALSE(third.CanAdjust());
    EXPECT_TRUE(third.dialogs.Shown.isEmpty());
}

TEST_F(SkinStory, AFailureLeavesTheDesktopsFrame) {
    Store("Skin", "Index", "3");
    Store("SkinProperties_3", "Colorize", "rather");
    Run run(*this);
    EXPECT_EQ(run.dialogs.Shown, QStringList{Text("Error in Skinning: 13\r\nType mismatch")});
    EXPECT_EQ(run.Chosen(), 3);
    EXPECT_TRUE(run.window.contentsMargins().isNull()) << "the frame is the desktop's";
    run.driver.Search("*.mp3");
    EXPECT_EQ(run.driver.Rows().size(), 2) << "the start went on";
}

TEST_F(SkinStory, ASearchGoesOnAcrossAnotherSkin) {
    Run run(*this);
    const WId window = run.window.winId();
    for (const int skin : {4, 0, 5}) {
        bool switched = false;
        network.OnCall = [&](const QString& call) {
            if (call != Text("list \\\\S\\D\\SUB\\") || std::exchange(switched, true))
                return;
            run.Choose(skin);
            EXPECT_EQ(run.driver.Caption(), Text("Search in progress. 1 files found."));
            EXPECT_TRUE(run.driver.Find<QWidget>("cmdAbandon").hasFocus());
        };
        run.driver.Search("*.mp3");
        EXPECT_TRUE(switched);
        EXPECT_EQ(run.driver.Rows().size(), 2);
        EXPECT_EQ(run.window.winId(), window);
        EXPECT_EQ(run.Chosen(), skin);
    }
}

TEST_F(SkinStory, DialogsHaveTheSkin) {
    for (const int skin : {0, 1, 3}) {
        Run run(*this);
        run.Choose(skin);
        bool seen = false;
        QTimer user;
        QObject::connect(&user, &QTimer::timeout, &run.window, [&] {
            auto* dialog = qobject_cast<frmNWDialog*>(QApplication::activeModalWidget());
            if (seen || !dialog)
                return;
            seen = true;
            EXPECT_EQ(dialog->palette().color(QPalette::Window), run.Background());
            EXPECT_EQ(dialog->contentsMargins().isNull(), skin == 0);
            const auto& tree = *dialog->findChild<QWidget*>(Text("tvwNetwork"));
            const auto& ok = *dialog->findChild<QWidget*>(Text("cmdOk"));
            const QRect inner = dialog->contentsRect();
            EXPECT_TRUE(inner.contains(tree.geometry()) && inner.contains(ok.geometry())) << skin;
            dialog->reject();
        });
        user.start(20);
        run.driver.Click("cmdSetSearchStart");
        EXPECT_TRUE(seen);
    }
}

} // namespace
} // namespace netrove
