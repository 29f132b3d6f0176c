#include "skins/SkinControls.h"

#include "controls/Color.h"
#include "runtime/SourceText.h"
#include "skins/SkinPalette.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTextEdit>

namespace netrove {
namespace {

QString TagOf(const QWidget& control) {
    return control.property(TagProperty).toString();
}

/// What the walk treats a control as.
enum class Kind {
    Other,
    Tabs,
    PictureBox,
    GroupFrame,
    Text, ///< a label or check box
    Line,
    Button,
    Shape,
    Option,
    TextBox
};

template <typename... Types>
bool IsAny(const QObject* object) {
    return ((qobject_cast<const Types*>(object) != nullptr) || ...);
}

/// Plain widgets, frames and text boxes also occur inside Qt's own controls, and must be told from
/// the program's; the other kinds don't occur there.
Kind KindOf(const QWidget& control) {
    if (IsAny<QTabWidget>(&control))
        return Kind::Tabs;
    if (IsAny<QGroupBox>(&control))
        return Kind::GroupFrame;
    if (IsAny<QLabel, QCheckBox>(&control))
        return Kind::Text;
    if (IsAny<QPushButton>(&control))
        return Kind::Button;
    if (IsAny<QRadioButton>(&control))
        return Kind::Option;
    if (IsAny<QLineEdit, QTextEdit, QPlainTextEdit>(&control))
        return IsAny<QComboBox, QAbstractSpinBox>(control.parent()) ? Kind::Other : Kind::TextBox;
    if (control.objectName().isEmpty())
        return Kind::Other;
    if (control.metaObject() == &QWidget::staticMetaObject)
        return Kind::PictureBox;
    if (control.metaObject() != &QFrame::staticMetaObject)
        return Kind::Other;
    const auto shape = static_cast<const QFrame&>(control).frameShape();
    if (shape == QFrame::HLine || shape == QFrame::VLine)
        return Kind::Line;
    return shape == QFrame::Box ? Kind::Shape : Kind::PictureBox;
}

/// One run over a window.
class Walk {
public:
    Walk(const QWidget& window, const NCSizeModifier& modifier, int skinIndex,
         const SkinColors& colors)
        : hasSkin_(skinIndex != 0)
        , windowColor_(window.palette().color(QPalette::Window))
        , backColor_(ToColor(modifier.ResolvedBackColor()))
        , foreColor_(ToColor(modifier.ResolvedForeColor()))
        , colors_(colors) {}

    void Color(QWidget& control) const {
        if (IsAny<QLineEdit>(&control))
            KeepPlaceholderReadable(control);
        const QString tag = TagOf(control);
        if (tag == "NOCOLOR"_L1) {
            if (control.autoFillBackground())
                KeepDesktopSurface(control);
        } else if (IsAny<QAbstractItemView>(&control)) {
            KeepDesktopSurface(control); // else it takes the window's edges and header
        } else {
            QPalette palette = control.palette();
            if (ColorByKind(control, tag, palette))
                control.setPalette(palette);
        }
    }

private:
    /// False for a control that is left as it is.
    [[nodiscard]] bool ColorByKind(QWidget& control, const QString& tag, QPalette& palette) const {
        switch (KindOf(control)) {
        case Kind::Tabs:
            ColorTabs(static_cast<QTabWidget&>(control), palette);
            break;
        case Kind::PictureBox:
            palette.setColor(QPalette::Window, windowColor_);
            break;
        case Kind::GroupFrame:
            ColorGroup(palette, tag);
            break;
        case Kind::Text:
            ColorText(palette, tag);
            if (hasSkin_ && TagOf(*control.parentWidget()) == "NOCOLOR"_L1)
                FillBackground(control);
            break;
        case Kind::Line:
            ColorLine(static_cast<QFrame&>(control), palette);
            break;
        case Kind::Button:
            if (hasSkin_)
                SetButton(palette, ToColor(colors_.SkinButtonColor));
            break;
        case Kind::Shape:
            if (tag != "BORDONLY"_L1)
                palette.setColor(QPalette::Window, windowColor_);
            palette.setColor(QPalette::WindowText, ToColor(colors_.SkinForeColor));
            break;
        case Kind::Option:
            if (hasSkin_)
                SetSurface(palette, windowColor_, foreColor_);
            break;
        case Kind::TextBox:
            SetField(palette, windowColor_, foreColor_);
            break;
        case Kind::Other:
            return false;
        }
        return true;
    }

    /// The pages keep the desktop's buttons.
    void ColorTabs(QTabWidget& tabs, QPalette& palette) const {
        if (!hasSkin_)
            return;
        const QPalette desktop = QApplication::palette();
        for (int index = 0; index < tabs.count(); ++index) {
            QPalette page = tabs.widget(index)->palette();
            for (const QPalette::ColorGroup group :
                 {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
                for (const QPalette::ColorRole role : {QPalette::Button, QPalette::ButtonText})
                    page.setBrush(group, role, desktop.brush(group, role));
            }
            tabs.widget(index)->setPalette(page);
        }
        SetTabs(palette, windowColor_, foreColor_);
    }

    void ColorGroup(QPalette& palette, const QString& tag) const {
        if (!hasSkin_)
            return;
        const bool hasForeColor = tag == "FORE"_L1;
        const QColor desktopText = QApplication::palette().color(QPalette::WindowText);
        SetSurface(palette, windowColor_,
                   hasForeColor ? foreColor_ : TextOn(windowColor_, desktopText));
    }

    void ColorText(QPalette& palette, const QString& tag) const {
        if (hasSkin_)
            SetSurface(palette, backColor_, foreColor_);
        if (tag != "LINK"_L1 && tag != "LITE"_L1)
            return;
        const QColor link = ToColor(colors_.SkinLinkColor);
        palette.setColor(QPalette::WindowText, hasSkin_ ? link : Legible(link, windowColor_));
    }

    /// The skin's text colour may not be readable on a parent that isn't skinned.
    static void FillBackground(QWidget& control) {
        control.setBackgroundRole(QPalette::Window); // a check box has the role of buttons
        control.setAutoFillBackground(true);
    }

    void ColorLine(QFrame& line, QPalette& palette) const {
        line.setFrameShadow(QFrame::Plain); // other shadows use the colours of edges
        palette.setColor(QPalette::WindowText, ToColor(colors_.SkinLineColor));
    }

    bool hasSkin_;
    QColor windowColor_;
    QColor backColor_;
    QColor foreColor_;
    SkinColors colors_;
};

} // namespace

void SkinControls(QWidget& window, const NCSizeModifier& modifier, int skinIndex,
                  const SkinColors& colors) {
    if (skinIndex != 0) {
        QPalette palette = window.palette();
        SetSurface(palette, ToColor(modifier.ResolvedBackColor()),
                   ToColor(modifier.ResolvedForeColor()));
        window.setPalette(palette);
    }
    const Walk walk(window, modifier, skinIndex, colors);
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (control->window() == &window)
            walk.Color(*control);
    }
}

} // namespace netrove
