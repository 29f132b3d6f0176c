#include "browser/ComputerChooser.h"
#include "fakes/Files.h"
#include "fakes/MemoryKeyring.h"
#include "gui/WindowTest.h"
#include "logons/frmLogon.h"
#include "logons/frmLogons.h"
#include "redirector/ComputerReport.h"
#include "runtime/ProgramVersion.h"
#include "silent/frmSilent.h"
#include "translations/Translation.h"

#include <QDialogButtonBox>
#include <QFile>
#include <QTest>
#include <gtest/gtest.h>

namespace netrove {
namespace {

/// Who shows a text, and the text.
using ShownText = std::pair<QString, QString>;

/// Every text of the window but those of Qt's own buttons, always in the same order.
std::vector<ShownText> TextsOf(const QWidget& window) {
    std::vector<ShownText> texts;
    QList<const QWidget*> widgets{&window};
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
        const QWidget* parent = widget->parentWidget();
        if (!qobject_cast<const QDialogButtonBox*>(parent) && !qobject_cast<const QTabBar*>(parent))
            widgets.append(widget);
    }
    for (const QWidget* widget : widgets) {
        const auto add = [&](const QVariant& text) {
            texts.emplace_back(widget->objectName(), text.toString());
        };
        for (const char* name : {"toolTip", "accessibleName", "accessibleDescription", "text",
                                 "placeholderText", "plainText"})
            add(widget->property(name));
        if (widget->isWindow())
            add(widget->windowTitle());
        if (const auto* box = qobject_cast<const QComboBox*>(widget)) {
            for (int at = 0; at < box->count(); ++at)
                add(box->itemText(at));
        }
        if (const auto* view = qobject_cast<const QAbstractItemView*>(widget);
            view && view->findChild<QHeaderView*>()) {
            for (int column = 0; column < view->model()->columnCount(); ++column)
                add(view->model()->headerData(column, Qt::Horizontal));
        }
    }
    for (const QAction* action : window.findChildren<QAction*>())
        texts.emplace_back(action->objectName(), action->text());
    return texts;
}

/// What a window shows stands in `texts`, letter by letter; NETROVE_WRITE_TEXTS=1 writes it anew.
void ExpectAsWritten(const std::vector<ShownText>& texts, const QString& folder) {
    QString lines;
    for (const auto& [name, text] : texts) {
        if (!text.isEmpty())
            lines += name + Text(": ") + QString(text).replace(u'\n', Text("\\n")) + u'\n';
    }
    lines.replace(folder, Text("FOLDER")).replace(ProgramVersion(), Text("VERSION"));
    lines.replace(QLocale::c().toString(ReleaseDate(), Text("MMMM d, yyyy")), Text("RELEASED"));
    const QString path = Text(NETROVE_TEXTS) + u'/' + texts.front().first + Text(".txt");
    if (qEnvironmentVariableIsSet("NETROVE_WRITE_TEXTS"))
        static_cast<void>(WriteFile(path, lines.toUtf8()));
    EXPECT_EQ(ReadFile(path).toStdString(), lines.toStdString()) << path.toStdString();
}

/// What differs and what doesn't between the texts in English and in German.
struct BothLanguages {
    explicit BothLanguages(const std::function<std::vector<ShownText>()>& texts,
                           const QString& folder)
        : german(texts()) {
        const auto english = std::exchange(german, {});
        ExpectAsWritten(english, folder);
        const Translation translation({Text("de")});
        german = texts();
        EXPECT_EQ(english.size(), german.size());
        for (std::size_t at = 0; at < std::min(english.size(), german.size()); ++at) {
            EXPECT_EQ(english[at].first, german[at].first);
            if (english[at].second != german[at].second)
                changed.append(english[at].first);
            else if (!english[at].second.isEmpty())
                same.append(english[at].second);
        }
    }

    static std::string Sorted(QStringList texts) {
        texts.removeDuplicates();
        texts.sort();
        return texts.join(u' ').toStdString();
    }

    std::vector<ShownText> german;
    QStringList changed; ///< the names of those whose text is another one in German
    QStringList same;    ///< English texts that are the same in German
};

/// No two of them are pressed by the same letter.
void ExpectOwnKeys(const std::vector<ShownText>& texts) {
    QStringList keys;
    for (const auto& [name, text] : texts) {
        if (const QKeySequence key = QKeySequence::mnemonic(text); !key.isEmpty())
            keys.append(key.toString());
    }
    EXPECT_EQ(keys.removeDuplicates(), 0) << keys.join(u' ').toStdString();
}

/// The parts of a painted frame that have texts; the items of its menu have no names.
constexpr const char* FrameParts =
    " frameButtonClose frameButtonMaximize frameButtonMinimize frameSystemMenu frameTitleBar";

class GermanWindow : public WindowTest {
protected:
    void SetUp() override {
        if (!Translation({Text("de")}).IsLoaded())
            GTEST_SKIP() << "built without lrelease";
    }
};

TEST_F(GermanWindow, OnlyOurTextsOfTheMainWindowChange) {
    QList<QByteArray> settings;
    const BothLanguages both(
        [&] {
            Make();
            Open();
            auto texts = TextsOf(*window);
            std::vector<ShownText> tools;
            for (const QAction* item : Find<QMenu>("mnuTools").actions())
                tools.emplace_back(item->objectName(), item->text());
            ExpectOwnKeys(tools);
            window->close();
            settings.append(ReadFile(IniFileName(folder.path())));
            QFile::remove(IniFileName(folder.path()));
            return texts;
        },
        folder.path());
    EXPECT_EQ(BothLanguages::Sorted(both.changed), FrameParts);
    EXPECT_EQ(settings.value(0), settings.value(1));
}

TEST_F(GermanWindow, OnlyOurTextsOfTheHelpMenusDialogsChange) {
    const struct {
        const char* item;
        const char* changed;
    } cases[] = {
        {"mnuAbout1", " lblCopyright lblDescription lblInfo(2) lblInfo(3) lblInfo(4) txtStuff"},
        {"mnuDonate", ""},
        {"UpdateMnu", " txtInfo"},
        {"mnuOpts", " lvwExcNetNode txtFont"},
    };
    Open();
    for (const auto& [item, changed] : cases) {
        const BothLanguages both(
            [this, name = item] {
                std::vector<ShownText> texts;
                InDialog<QWidget>(name, [&](QWidget& dialog) {
                    texts = TextsOf(dialog);
                    dialog.close();
                });
                return texts;
            },
            folder.path());
        EXPECT_EQ(BothLanguages::Sorted(both.changed), FrameParts + std::string(changed));
    }
}

TEST_F(GermanWindow, AllOfOurDialogsIsTranslated) {
    const auto logons = std::make_shared<Logons>(std::make_shared<MemoryKeyring>());
    const ComputerReport report;
    const std::pair<const char*, std::function<std::unique_ptr<QWidget>()>> cases[] = {
        {"Computer",
         [&] {
             return std::make_unique<frmLogons>(
                 LogonServices{.logons = logons, .dialogs = dialogs, .placeOf = {}}, nullptr);
         }},
        {"&Computer:",
         [&] {
             return std::make_unique<frmLogon>(nullptr, frmLogon::Services{false, dialogs},
                                               nullptr);
         }},
        {"1", [&] { return std::make_unique<ComputerChooser>(network, QString(), nullptr); }},
        {"", [&] { return std::make_unique<frmSilent>(frmSilent::Services{report}, nullptr); }},
    };
    for (const auto& [same, make] : cases) {
        const BothLanguages both([&, &make = make] { return TextsOf(*make()); }, folder.path());
        EXPECT_EQ(BothLanguages::Sorted(both.same), same);
        ExpectOwnKeys(both.german);
    }
}

TEST_F(GermanWindow, NumbersTakeTheirForm) {
    const Translation german({Text("de")});
    ComputerReport report;
    for (const char* count : {"1 Computer nicht durchsucht", "2 Computer nicht durchsucht"}) {
        report.NoteSilence(Text(count), QString());
        EXPECT_EQ(FindIn<QLabel>(frmSilent({report}, nullptr), "lblCount").text(), Text(count));
    }
}

} // namespace
} // namespace netrove
