#include "logons/LogonControls.h"

#include "controls/NamedControls.h"
#include "runtime/SourceText.h"

#include <QFontMetrics>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

namespace netrove {
namespace {

/// The number of lines that the state has room for, so that the dialog keeps its shape.
constexpr int StateLines = 2;
/// Initial size of the list, in average characters and in lines.
constexpr int ListCharacters = 70;
constexpr int ListLines = 10;
constexpr int BarCharacters = 16;

QPushButton* MakeButton(const char* name, const QString& caption, QWidget& parent) {
    QPushButton* button = NamedButton(parent, Text(name), caption);
    button->setAutoDefault(false);
    return button;
}

} // namespace

LogonControls::LogonControls(QDialog& dialog)
    : lvwLogons(new QTreeWidget(&dialog))
    , cmdAdd(MakeButton("cmdAdd", tr("&Add..."), dialog))
    , cmdChange(MakeButton("cmdChange", tr("C&hange..."), dialog))
    , cmdRemove(MakeButton("cmdRemove", tr("&Remove"), dialog))
    , cmdTest(MakeButton("cmdTest", tr("&Test"), dialog))
    , cmdClose(MakeButton("cmdClose", tr("Close"), dialog))
    , lblState(new QLabel(&dialog))
    , barBusy(new QProgressBar(&dialog))
    , cmdCancel(MakeButton("cmdCancel", tr("&Cancel Test"), dialog)) {
    MakeList();
    lblState->setObjectName(u"lblState"_s);
    lblState->setTextFormat(Qt::PlainText); // it contains names from outside
    lblState->setWordWrap(true);
    lblState->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    lblState->setMinimumHeight(StateLines * lblState->fontMetrics().lineSpacing());
    barBusy->setObjectName(u"barBusy"_s);
    barBusy->setRange(0, 0);
    barBusy->setTextVisible(false);
    barBusy->setMaximumWidth(barBusy->fontMetrics().averageCharWidth() * BarCharacters);
    barBusy->setAccessibleName(tr("Busy"));
    for (QWidget* control : {static_cast<QWidget*>(barBusy), static_cast<QWidget*>(cmdCancel)}) {
        QSizePolicy policy = control->sizePolicy();
        policy.setRetainSizeWhenHidden(true);
        control->setSizePolicy(policy);
        control->hide();
    }
    Arrange(dialog);
}

void LogonControls::MakeList() {
    lvwLogons->setObjectName(u"lvwLogons"_s);
    lvwLogons->setAccessibleName(tr("Stored logons"));
    lvwLogons->setHeaderLabels({tr("Computer"), tr("User"), tr("Kept"), tr("State")});
    lvwLogons->setRootIsDecorated(false);
    lvwLogons->setAllColumnsShowFocus(true);
    lvwLogons->setUniformRowHeights(true);
    const QFontMetrics metrics = lvwLogons->fontMetrics();
    // Long names are cut short, and shown in full in the tool tip.
    QHeaderView& header = *lvwLogons->header();
    header.setStretchLastSection(false);
    for (const int column : {0, 1})
        header.setSectionResizeMode(column, QHeaderView::Stretch);
    for (const int column : {2, 3})
        header.setSectionResizeMode(column, QHeaderView::ResizeToContents);
    lvwLogons->setMinimumSize(metrics.averageCharWidth() * ListCharacters,
                              metrics.lineSpacing() * ListLines);
}

void LogonControls::Arrange(QDialog& dialog) {
    auto* hint =
        new QLabel(tr("Computers for which no logon is stored are asked as a guest."), &dialog);
    hint->setObjectName(u"lblHint"_s);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {cmdAdd, cmdChange, cmdRemove, cmdTest})
        buttons->addWidget(button);
    buttons->addStretch();
    buttons->addWidget(cmdClose);
    auto* middle = new QHBoxLayout;
    middle->addWidget(lvwLogons, 1);
    middle->addLayout(buttons);
    auto* busy = new QHBoxLayout;
    busy->addWidget(barBusy);
    busy->addWidget(cmdCancel);
    auto* bottom = new QHBoxLayout;
    bottom->addWidget(lblState, 1);
    bottom->addLayout(busy);
    auto* all = new QVBoxLayout(&dialog);
    all->addWidget(hint);
    all->addLayout(middle, 1);
    all->addLayout(bottom);
    QWidget* before = lvwLogons;
    for (QPushButton* button : {cmdAdd, cmdChange, cmdRemove, cmdTest, cmdCancel, cmdClose}) {
        QWidget::setTabOrder(before, button);
        before = button;
    }
}

} // namespace netrove
