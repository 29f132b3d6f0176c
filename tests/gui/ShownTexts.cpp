#include "gui/ShownTexts.h"

#include "controls/Color.h"
#include "controls/StatusBar.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHash>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QStyleOptionGroupBox>
#include <QTabBar>
#include <QTextEdit>

#include <algorithm>

namespace netrove {
namespace {

/// Reads the rectangles that only the control itself can give its style.
template <typename Control, typename Option>
class Styled : public Control {
public:
    static QRect Element(const Control& control, QStyle::SubElement element) {
        Option option;
        static_cast<const Styled&>(control).Fill(option);
        return control.style()->subElementRect(element, &option, &control);
    }
    static QRect Part(const Control& control, QStyle::ComplexControl kind,
                      QStyle::SubControl part) {
        Option option;
        static_cast<const Styled&>(control).Fill(option);
        return control.style()->subControlRect(kind, &option, part, &control);
    }

private:
    void Fill(Option& option) const { this->initStyleOption(&option); }
};

class Collector {
public:
    explicit Collector(QWidget& window) : window_(window) {
        for (QWidget* control : window.findChildren<QWidget*>()) {
            if (control->window() == &window && control->isVisible())
                Collect(*control);
        }
        Collect(window);
    }

    std::vector<ShownText> Texts() && { return std::move(texts_); }

private:
    void Add(QWidget& control, const QRect& area, bool desktop = false) {
        const QRect seen = area & control.rect();
        if (seen.width() < 4 || seen.height() < 4)
            return;
        QString name = control.objectName();
        if (name.isEmpty())
            name = QString::fromLatin1(control.metaObject()->className());
        texts_.push_back({name, QRect(control.mapTo(&window_, seen.topLeft()), seen.size()),
                          !control.isEnabled(), desktop});
    }

    void Collect(QWidget& control) {
        if (auto* label = qobject_cast<QLabel*>(&control)) {
            if (!label->text().isEmpty())
                Add(control, label->contentsRect());
        } else if (auto* button = qobject_cast<QPushButton*>(&control)) {
            Add(control, Styled<QPushButton, QStyleOptionButton>::Element(
                             *button, QStyle::SE_PushButtonContents));
        } else if (auto* box = qobject_cast<QCheckBox*>(&control)) {
            if (!box->text().isEmpty())
                Add(control, Styled<QCheckBox, QStyleOptionButton>::Element(
                                 *box, QStyle::SE_CheckBoxContents));
        } else if (auto* option = qobject_cast<QRadioButton*>(&control)) {
            Add(control, Styled<QRadioButton, QStyleOptionButton>::Element(
                             *option, QStyle::SE_RadioButtonContents));
        } else if (auto* group = qobject_cast<QGroupBox*>(&control)) {
            Add(control, Styled<QGroupBox, QStyleOptionGroupBox>::Part(*group, QStyle::CC_GroupBox,
                                                                       QStyle::SC_GroupBoxLabel));
        } else {
            CollectFields(control);
        }
    }

    void CollectFields(QWidget& control) {
        if (auto* line = qobject_cast<QLineEdit*>(&control)) {
            if (!line->displayText().isEmpty() || !line->placeholderText().isEmpty())
                Add(control, line->rect().adjusted(3, 3, -3, -3), true);
        } else if (auto* combo = qobject_cast<QComboBox*>(&control)) {
            if (!combo->isEditable())
                Add(control,
                    Styled<QComboBox, QStyleOptionComboBox>::Part(*combo, QStyle::CC_ComboBox,
                                                                  QStyle::SC_ComboBoxEditField),
                    true);
        } else if (qobject_cast<QTextEdit*>(&control) || qobject_cast<QPlainTextEdit*>(&control)) {
            Add(*qobject_cast<QAbstractScrollArea*>(&control)->viewport(), control.rect());
        } else if (auto* status = qobject_cast<StatusBar*>(&control)) {
            for (int panel = 1; panel <= status->PanelCount(); ++panel) {
                if (!status->Text(panel).isEmpty())
                    Add(control, status->PanelRect(panel).adjusted(3, 3, -3, -3));
            }
        } else {
            CollectItems(control);
        }
    }

    void CollectItems(QWidget& control) {
        if (auto* tabs = qobject_cast<QTabBar*>(&control)) {
            for (int tab = 0; tab < tabs->count(); ++tab)
                Add(control, tabs->tabRect(tab).adjusted(6, 5, -6, -3));
        } else if (auto* header = qobject_cast<QHeaderView*>(&control)) {
            for (int section = 0; section < header->count(); ++section) {
                if (!header->isSectionHidden(section))
                    Add(*header->viewport(),
                        QRect(header->sectionViewportPosition(section), 0,
                              header->sectionSize(section), header->height())
                            .adjusted(2, 2, -3, -3),
                        true);
            }
        } else if (auto* view = qobject_cast<QAbstractItemView*>(&control)) {
            for (int row = 0; view->model() && row < view->model()->rowCount(); ++row)
                Add(*view->viewport(), view->visualRect(view->model()->index(row, 0)), true);
        } else if (qobject_cast<QMenuBar*>(&control) || qobject_cast<QMenu*>(&control)) {
            CollectActions(control);
        }
    }

    void CollectActions(QWidget& control) {
        auto* bar = qobject_cast<QMenuBar*>(&control);
        auto* menu = qobject_cast<QMenu*>(&control);
        for (QAction* action : control.actions()) {
            const QRect area = bar ? bar->actionGeometry(action) : menu->actionGeometry(action);
            if (action->isSeparator() || !action->isVisible() || area.isEmpty())
                continue;
            Add(control, area.adjusted(bar ? 2 : 24, 2, -2, -2), true);
            if (!texts_.empty())
                texts_.back().disabled = !action->isEnabled();
        }
    }

    QWidget& window_;
    std::vector<ShownText> texts_;
};

} // namespace

std::vector<ShownText> ShownTexts(QWidget& window) {
    return Collector(window).Texts();
}

double PaintedContrast(const QImage& picture, const QRect& area) {
    QHash<QRgb, int> counts;
    const QRect inside = area & picture.rect();
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x)
            ++counts[picture.pixel(x, y)];
    }
    const auto most = std::max_element(counts.cbegin(), counts.cend());
    double highest = 1;
    for (auto color = counts.cbegin(); color != counts.cend(); ++color)
        highest = std::max(highest, Contrast(QColor(color.key()), QColor(most.key())));
    return highest;
}

} // namespace netrove
