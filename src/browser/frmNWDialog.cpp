#include "browser/frmNWDialog.h"

#include "controls/Twips.h"
#include "runtime/RunTimeError.h"
#include "runtime/SourceText.h"
#include "runtime/Yield.h"
#include "windowservices/WindowGeometry.h"

#include <utility>

namespace netrove {
namespace {

/// The size with which the dialog opens, in twips.
constexpr int DesignWidth = 6300;
constexpr int DesignHeight = 6900;
/// How long the dialog has been open when the network is asked, in milliseconds.
constexpr int LoadDelay = 1000;

QString NumberAndDescription(const RunTimeError& failure) {
    return QString::number(failure.Number()) + "\r\n"_L1 + failure.Description();
}

} // namespace

frmNWDialog::frmNWDialog(const BrowserServices& services, QWidget* owner)
    : ProgramDialog(u"frmNWDialog"_s, services.look, owner)
    , services_(services)
    , controls_(*this)
    , layout_(*this, controls_)
    , exclusion_(*controls_.tvwNetwork, services.settings, services.exclusions, services.dialogs)
    , tree_(controls_, services_, exclusion_) {
    setWindowTitle(u"Select Network Node"_s);
    resize(ToPixels(DesignWidth), ToPixels(DesignHeight));
    tmrNodes_.setObjectName(u"tmrNodes"_s);
    tmrNodes_.setParent(this);
    tmrNodes_.setSingleShot(true);
    tmrNodes_.setInterval(LoadDelay);
    tmrNodes_.setTimerType(Qt::PreciseTimer); // a coarse one may fire earlier
    ConnectControls();
}

void frmNWDialog::ConnectControls() {
    connect(&tmrNodes_, &QTimer::timeout, this, &frmNWDialog::tmrNodes_Timer);
    connect(controls_.cmdOk, &QPushButton::clicked, this, &frmNWDialog::cmdOk_Click);
    connect(controls_.cmdCancel, &QPushButton::clicked, this, &frmNWDialog::reject);
    connect(controls_.tvwNetwork, &TreeView::Expand, this, &frmNWDialog::tvwNetwork_Expand);
    connect(controls_.tvwNetwork, &TreeView::MouseDown, this, &frmNWDialog::tvwNetwork_MouseDown);
    connect(controls_.mnuExcNode, &QAction::triggered, this,
            [this] { exclusion_.mnuExcNode_Click(); });
}

void frmNWDialog::Form_Load() {
    controls_.tvwNetwork->SetImageList(&controls_.imgXPNWImages);
    Centre();
    LoadSkin();
    tmrNodes_.start();
    controls_.lblProg->clear();
    controls_.lblAddNode->clear();
}

/// The load runs inside this handler. The dialog may be closed during any of its yields; then it
/// returns at its next test, with the tree still hidden.
void frmNWDialog::tmrNodes_Timer() {
    bool isAborted = false;
    const auto failure = FailureOf([&] {
        BeginFirstLoad();
        isAborted = !tree_.LoadFirstLevel();
    });
    if (isAborted)
        return;
    if (controls_.tvwNetwork->Count() > 0)
        controls_.tvwNetwork->EnsureVisible(controls_.tvwNetwork->Children({}).first());
    if (failure) {
        ShowLoadFailure(*failure);
    } else {
        controls_.lblAddNode->setText(u"Done"_s);
        controls_.lblAddNode->repaint();
    }
    EndFirstLoad();
}

void frmNWDialog::BeginFirstLoad() {
    tmrNodes_.stop();
    controls_.lblWait->show();
    controls_.LblMain->show();
    controls_.lblProg->show();
    LoadProgress::Reset(controls_);
    controls_.tvwNetwork->hide();
    controls_.cmdOk->setEnabled(false);
    controls_.tvwNetwork->Clear();
    Yield();
}

void frmNWDialog::ShowLoadFailure(const RunTimeError& failure) {
    if (tree_.Aborted()) // a closed dialog reports nothing
        return;
    services_.dialogs.Message(MessageIcon::Critical,
                              "An error was encountered when searching the network.\r\n"_L1 +
                                  NumberAndDescription(failure),
                              "Error while adding "_L1 + tree_.ChildInWork());
}

void frmNWDialog::EndFirstLoad() {
    Yield();
    for (QWidget* shown :
         {static_cast<QWidget*>(controls_.lblWait), static_cast<QWidget*>(controls_.lblAddNode),
          static_cast<QWidget*>(controls_.ImgNet1), static_cast<QWidget*>(controls_.LblMain),
          static_cast<QWidget*>(controls_.picProg)})
        shown->hide();
    LoadProgress::Reset(controls_);
    controls_.tvwNetwork->show();
    controls_.tvwNetwork->setFocus();
    Yield();
    controls_.cmdOk->setEnabled(true);
}

/// While a load yields, the user can expand further nodes, each in a handler inside this one.
void frmNWDialog::tvwNetwork_Expand(const QString& key) {
    const QString text = controls_.tvwNetwork->Text(key);
    const auto failure = FailureOf([&] {
        setCursor(Qt::WaitCursor);
        Yield();
        if (!tree_.IsLoaded(key)) {
            Yield();
            tree_.LoadChildren(key);
        }
    });
    if (failure) {
        controls_.lblWait->hide();
        controls_.picProg->hide();
    }
    unsetCursor();
    if (failure && failure->Number() >= 1)
        services_.dialogs.Message(
            MessageIcon::Critical,
            "An error was encountered when expanding the node.\r\nNode = '"_L1 + text +
                "'\r\n \r\n"_L1 + NumberAndDescription(*failure),
            "Error While Expanding "_L1 + text);
}

void frmNWDialog::tvwNetwork_MouseDown(Qt::MouseButton button, const QPoint& position) {
    const QString selected = controls_.tvwNetwork->Selected();
    if (selected.isEmpty() || exclusion_.IsMarked(selected))
        return;
    if (button == Qt::RightButton)
        controls_.mnupopUp1->popup(controls_.tvwNetwork->viewport()->mapToGlobal(position));
}

void frmNWDialog::cmdOk_Click() {
    result_ = tree_.SelectedResource();
    cancelled_ = false;
    accept();
}

void frmNWDialog::reject() {
    tmrNodes_.stop();
    cancelled_ = true;
    tree_.Abort();
    QDialog::reject();
}

void frmNWDialog::setVisible(bool visible) {
    if (visible && !std::exchange(loaded_, true))
        Form_Load();
    QDialog::setVisible(visible);
}

void frmNWDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    layout_.Form_Resize();
}

void frmNWDialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    layout_.Form_Resize();
}

} // namespace netrove
