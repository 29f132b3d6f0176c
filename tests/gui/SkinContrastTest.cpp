#include "controls/Color.h"
#include "fakes/MemoryKeyring.h"
#include "fakes/Pixels.h"
#include "gui/WindowTest.h"
#include "logons/frmLogon.h"
#include "logons/frmLogons.h"
#include "options/frmAddNetNode.h"
#include "options/frmOpts.h"
#include "redirector/ComputerReport.h"
#include "silent/frmSilent.h"

#include <QPaintEngine>
#include <QPainter>
#include <QToolTip>

namespace netrove {
namespace {

/// Texts that the table of the skins makes what they are.
constexpr std::pair<const char*, int> Exceptions[] = {
    {"HyperLbl", 4}, // links are pure blue, and the window is black
    {"lblVersion", 4},
    {"lblDateEx", 4},
    {"highlighted", 3}, // the highlighted menu is white on light blue
};

/// Paints nothing, and notes the places of the texts.
class TextNoter : public QPaintEngine {
public:
    TextNoter() : QPaintEngine(AllFeatures) {}

    bool begin(QPaintDevice* /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void updateState(const QPaintEngineState& changed) override {
        if (changed.state() & DirtyTransform)
            transform_ = changed.transform();
    }
    void drawPath(const QPainterPath& /*path*/) override {}
    void drawPolygon(const QPointF* /*points*/, int /*count*/, PolygonDrawMode /*mode*/) override {}
    void drawPixmap(const QRectF& /*to*/, const QPixmap& /*picture*/,
                    const QRectF& /*from*/) override {}
    void drawTextItem(const QPointF& place, const QTextItem& item) override {
        const QRectF area(place.x(), place.y() - item.ascent(), item.width(),
                          item.ascent() + item.descent());
        if (!item.text().trimmed().isEmpty())
            areas.push_back(transform_.mapRect(area).toAlignedRect());
    }

    std::vector<QRect> areas;

private:
    QTransform transform_;
};

class TextNotes : public QPaintDevice {
public:
    explicit TextNotes(const QWidget& like) : like_(like) {}
    QPaintEngine* paintEngine() const override { return &noter; }

    mutable TextNoter noter;

protected:
    int metric(PaintDeviceMetric what) const override {
        if (what == PdmWidth || what == PdmHeight)
            return what == PdmWidth ? like_.width() : like_.height();
        if (what == PdmDevicePixelRatio || what == PdmDevicePixelRatioScaled)
            return what == PdmDevicePixelRatio ? 1 : int(devicePixelRatioFScale());
        return 96;
    }

private:
    const QWidget& like_;
};

/// Whether what the control shows there is switched off.
bool IsDisabled(const QWidget& control, const QPoint& place) {
    const QAction* action = nullptr;
    if (const auto* menu = qobject_cast<const QMenu*>(&control))
        action = menu->actionAt(place);
    if (const auto* bar = qobject_cast<const QMenuBar*>(&control))
        action = bar->actionAt(place);
    return action ? !action->isEnabled() : !control.isEnabled();
}

/// Whether the desktop chooses how what is switched off looks there.
bool IsDesktops(const QWidget& control) {
    return control.inherits("QMenu") || control.inherits("QMenuBar") ||
           control.inherits("QLineEdit") || control.inherits("QComboBox") ||
           qobject_cast<const QAbstractItemView*>(control.parentWidget());
}

/// The contrast of what stands out most in the area against the colour that fills it.
double PaintedContrast(const QImage& picture, const QRect& area) {
    const QHash<QRgb, int> counts = ColorsOf(picture, area);
    const int most = counts.isEmpty() ? 0 : *std::max_element(counts.cbegin(), counts.cend());
    double highest = 1;
    // Of a shaded area, two colours may be equally common.
    for (auto fill = counts.cbegin(); fill != counts.cend(); ++fill) {
        for (auto color = counts.cbegin(); fill.value() == most && color != counts.cend(); ++color)
            highest = std::max(highest, Contrast(QColor(color.key()), QColor(fill.key())));
    }
    return highest;
}

QPalette DarkDesktop() {
    QPalette dark(QColor(49, 54, 59), QColor(49, 54, 59));
    dark.setColor(QPalette::Base, QColor(35, 38, 41));
    dark.setColor(QPalette::Highlight, QColor(61, 174, 233));
    dark.setColor(QPalette::HighlightedText, QColor(20, 20, 20));
    dark.setColor(QPalette::Link, QColor(41, 128, 185));
    dark.setColor(QPalette::PlaceholderText, QColor(0, 0, 0, 128)); // forgotten by some themes
    return dark;
}

/// The program under one skin on one desktop, with every window that it has.
class SkinContrast : public WindowTest, public testing::WithParamInterface<std::tuple<int, bool>> {
protected:
    SkinContrast() {
        QApplication::setPalette(std::get<bool>(GetParam()) ? DarkDesktop() : QPalette());
        AddFile("\\\\S\\D\\one.mp3", 1500000);
        ProfileFile(IniFileName(folder.path()))
            .WriteIni(Text("Skin"), Text("Index"), QString::number(Skin()));
        Open();
        Search("*.mp3");
        for (const auto& [path, text] : {std::pair("Netrove2.ver", "TBS_VER 99.0.0"),
                                         std::pair("Netrove2.nwz", "TBS_NWZ News")})
            http.Pages.insert(Text("https://www.example.com/files/") + Text(path), Text(text));
        report.NoteSilence(Text("\\\\PELICAN"), Text("It can't be reached."));
        nobody.NoteNobody();
        logons->Store({.computer = Text("LANTERN"), .user = Text("me")}, [](auto) {});
    }
    ~SkinContrast() override {
        window.reset();
        QApplication::setPalette(QPalette());
    }

    [[nodiscard]] static int Skin() { return std::get<int>(GetParam()); }

    void ExpectReadable(QWidget& shown) {
        QCoreApplication::processEvents();
        const QImage picture = shown.grab().toImage();
        std::size_t seen = 0;
        QList<QWidget*> controls{&shown};
        controls += shown.findChildren<QWidget*>();
        for (QWidget* control : controls) {
            if (control->window() != shown.window() || !control->isVisible())
                continue;
            TextNotes notes(*control);
            control->render(&notes, {}, {}, {});
            seen += notes.noter.areas.size();
            for (const QRect& area : notes.noter.areas)
                ExpectReadable(*control, area & control->rect(), shown, picture);
        }
        EXPECT_GT(seen, 0U) << shown.objectName().toStdString();
    }

    static void ExpectReadable(const QWidget& control, const QRect& area, const QWidget& shown,
                               const QImage& picture) {
        if (area.width() < 4 || area.height() < 4)
            return;
        // How much a desktop fades what is switched off is its own choice.
        if (IsDisabled(control, area.center()) && (Skin() == 0 || IsDesktops(control)))
            return;
        for (const auto& [name, skin] : Exceptions) {
            if (control.objectName() == QLatin1String(name) && Skin() == skin)
                return;
        }
        EXPECT_GE(PaintedContrast(picture, area.translated(control.mapTo(&shown, QPoint()))), 3)
            << control.metaObject()->className() << control.objectName().toStdString() << " of "
            << shown.objectName().toStdString();
    }

    /// With every page of it, with what is there only when it is asked for, and at rest.
    void ExpectAllReadable(QWidget& dialog) {
        ExpectReadable(dialog);
        for (QCheckBox* box : dialog.findChildren<QCheckBox*>())
            box->setChecked(true);
        for (const char* name : {"cmdCheck", "cmdUp"}) {
            if (auto* button = dialog.findChild<QPushButton*>(Text(name)))
                button->click();
        }
        if (auto* ok = dialog.findChild<QPushButton*>(Text("cmdOk"))) {
            ASSERT_TRUE(QTest::qWaitFor([&] { return ok->isEnabled(); }));
        }
        ExpectReadable(dialog);
        auto* tabs = dialog.findChild<QTabWidget*>();
        for (int page = 1; tabs && page < tabs->count(); ++page) {
            tabs->setCurrentIndex(page);
            ExpectReadable(dialog);
        }
    }

    ComputerReport report;
    ComputerReport nobody{[] { return Texts({"Net: three houses."}); }};
    std::shared_ptr<Logons> logons = std::make_shared<Logons>(std::make_shared<MemoryKeyring>());
};

TEST_P(SkinContrast, EveryTextCanBeRead) {
    for (const int tab : {1, 0}) {
        Find<QTabWidget>("SSTab1").setCurrentIndex(tab);
        ExpectReadable(*window);
    }
    // Every dialog of the program: one more is a line more.
    const auto expectReadable = [this](QWidget& dialog) {
        EXPECT_EQ(dialog.contentsMargins().isNull(), Skin() == 0)
            << dialog.objectName().toStdString() << " has the skin's frame";
        ExpectAllReadable(dialog);
        dialog.close();
    };
    Browse(expectReadable);
    InDialog<frmOpts>("mnuOpts", [&](frmOpts& options) {
        UseDialog<frmAddNetNode>([&] { FindIn<QAction>(options, "mnuAddNetNode").trigger(); },
                                 expectReadable);
        expectReadable(options);
    });
    for (const char* item : {"mnuAbout1", "mnuDonate", "UpdateMnu"})
        InDialog<QWidget>(item, expectReadable);
    if (Skin() != 0)
        InDialog<QWidget>("mnuSkinCust", expectReadable);
    const DialogLook look{.skin = &window->Skins()};
    QWidget* owner = window.get();
    for (QDialog* dialog : std::initializer_list<QDialog*>{
             new frmSilent({.report = report, .look = look}, owner),
             new frmSilent({.report = nobody, .look = look}, owner),
             new frmLogons({.logons = logons, .dialogs = dialogs, .placeOf = {}, .look = look},
                           owner),
             new frmLogon(nullptr, {.hasKeyring = false, .dialogs = dialogs, .look = look},
                          owner)}) {
        dialog->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(dialog));
        expectReadable(*dialog);
    }
    ClickHeader(Results(), 3, Qt::RightButton);
    Pick("PopUp3Mnu", "HelpColMnu");
    ExpectReadable(*QApplication::activePopupWidget());
    QApplication::activePopupWidget()->close();

    QMenuBar& bar = *window->menuBar();
    ExpectReadable(bar);
    bar.setObjectName(Text("highlighted"));
    bar.setActiveAction(bar.actions().first());
    ExpectReadable(bar);
    QApplication::activePopupWidget()->close();

    for (const char* name : {"mnuSkinTOP", "PopUp2Mnu"}) {
        auto& menu = Find<QMenu>(name);
        menu.popup(window->mapToGlobal(QPoint(50, 50)));
        menu.setActiveAction(menu.actions().at(1));
        ExpectReadable(menu);
        menu.close();
    }
    auto& combo = Find<QComboBox>("LstSearchFor");
    combo.showPopup();
    ExpectReadable(*combo.view()->window());
    combo.hidePopup();

    QToolTip::showText(window->mapToGlobal(QPoint(60, 60)), Text("Select this to search"),
                       &Find("chkRecurse"));
    QWidget* tip = nullptr;
    for (QWidget* shown : QApplication::topLevelWidgets())
        tip = shown->inherits("QTipLabel") ? shown : tip;
    ASSERT_TRUE(tip);
    ExpectReadable(*tip);
    QToolTip::hideText();
}

INSTANTIATE_TEST_SUITE_P(All, SkinContrast,
                         testing::Combine(testing::Range(0, 6), testing::Bool()));

} // namespace
} // namespace netrove
