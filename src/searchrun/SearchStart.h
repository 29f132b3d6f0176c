#pragma once

#include "platform/Dialogs.h"
#include "platform/NetworkEnumeration.h"
#include "search/ExclusionLists.h"
#include "searchrun/SearchState.h"
#include "searchrun/job/CurrentJob.h"
#include "settings/Settings.h"
#include "windowservices/WindowControls.h"

#include <QLineEdit>
#include <QMenu>
#include <QWidget>

#include <functional>
#include <memory>
#include <optional>

namespace netrove {

/// The three ways of choosing the node where a search starts: a computer or a workgroup by its
/// name; the root; a node from the network browser.
class SearchStart {
public:
    struct Services {
        NetworkEnumeration& network;
        Dialogs& dialogs;
        const Settings& settings;
        ExclusionLists& exclusions; ///< the ones that the browser marks
        /// Shows the browser until it is closed; returns the node that was chosen, nothing if the
        /// user cancelled.
        std::function<std::optional<std::shared_ptr<NetResource>>()> browse;
    };

    /// `mnuPopUp6` is the menu of the ways.
    SearchStart(const WindowControls& controls, QMenu& mnuPopUp6, CurrentJob& job,
                Services services, SearchState& state)
        : controls_(controls)
        , mnuPopUp6_(mnuPopUp6)
        , job_(job)
        , services_(std::move(services))
        , state_(state) {}

    /// Sets whether the network has workgroups, so that paths lead through its provider. True at
    /// first.
    void SetIsWinNT(bool isWinNT) { isWinNT_ = isWinNT; }

    /// Chooses the node that the program begins with: the root, which the start of the program has
    /// made, or, with `isWinXP`, the root's provider of Windows networks. If there is no such
    /// provider, raises ErrorNumber::ObjectNotSet, and no node is chosen.
    void ChooseStartNode(bool isWinXP);

    /// Shows the menu of ways at the mouse, for either mouse button.
    void cmdInpNetNode_Click();

    /// Item 0 asks for a computer, 1 for a workgroup, 3 takes the root. The start node stays as it
    /// was if the user cancels, or if the name isn't valid or isn't found. Yields, with the
    /// hourglass shown. Does nothing while a job runs. Failures end in a message box.
    void mnuInpNetNode_Click(int index);

    /// Lets the user choose in the browser; does nothing while a job runs. Failures end in a
    /// message box.
    void cmdSetSearchStart_Click();

private:
    /// What differs between asking for a computer and for a workgroup.
    struct Question;

    void InputNode(const Question& question);
    void SetToRoot();
    [[nodiscard]] QString WorkstationPath(const QString& name) const;
    [[nodiscard]] QString WorkgroupPath(const QString& name) const;
    void Browse();
    void SetStartNode(const std::shared_ptr<NetResource>& node);

    WindowControls controls_;
    QMenu& mnuPopUp6_;
    CurrentJob& job_;
    Services services_;
    SearchState& state_;
    bool isWinNT_ = true;
};

} // namespace netrove
