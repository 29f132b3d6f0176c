#pragma once

#include "browser/BrowserControls.h"
#include "browser/BrowserLayout.h"
#include "browser/BrowserServices.h"
#include "browser/NetworkTree.h"
#include "browser/NodeExclusion.h"
#include "network/NetResource.h"
#include "runtime/RunTimeError.h"
#include "skins/ProgramDialog.h"

#include <QTimer>

#include <memory>

namespace netrove {

/// The network browser: the user picks the node where a search starts, and excludes nodes from
/// searches. It is shown by exec(), once, and read afterwards:
///
///     frmNWDialog browser(services, owner);
///     browser.exec();
///     if (!browser.Cancelled())
///         start = browser.Result();
///
/// The network is asked for the first level a second after the dialog has opened, and for each
/// deeper level when its node is expanded. Both happen inside handlers that yield, so that the
/// dialog can be used and closed meanwhile; exec() returns once the handlers have noticed that.
class frmNWDialog : public ProgramDialog {
    Q_OBJECT

public:
    /// The dialog appears in the middle of the window `owner`.
    frmNWDialog(const BrowserServices& services, QWidget* owner);
    ~frmNWDialog() override = default;

    /// Whether it was closed without a choice.
    [[nodiscard]] bool Cancelled() const { return cancelled_; }
    /// The chosen node, which keeps what has been read below it; null before a choice.
    [[nodiscard]] const std::shared_ptr<NetResource>& Result() const { return result_; }

    /// Closes without a choice; the close box and the Escape key do this too.
    void reject() override;

    void setVisible(bool visible) override;

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void Form_Load();
    void ConnectControls();
    void tmrNodes_Timer();
    void BeginFirstLoad();
    void EndFirstLoad();
    void ShowLoadFailure(const RunTimeError& failure);
    void tvwNetwork_Expand(const QString& key);
    void tvwNetwork_MouseDown(Qt::MouseButton button, const QPoint& position);
    void cmdOk_Click();

    BrowserServices services_;
    BrowserControls controls_;
    BrowserLayout layout_;
    NodeExclusion exclusion_;
    NetworkTree tree_;
    QTimer tmrNodes_;
    bool loaded_ = false;
    bool cancelled_ = false;
    std::shared_ptr<NetResource> result_;
};

} // namespace netrove
