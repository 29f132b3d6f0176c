#pragma once

#include "options/OptionControls.h"
#include "platform/Dialogs.h"
#include "runtime/RunTimeError.h"
#include "settings/Settings.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace netrove {

/// Edits the list of the nodes that searches leave out: a working copy of the settings' entries,
/// one row each. The text of a row is the node's name, the check box tells whether the entry is on,
/// the second column and the picture tell its type. If a handler fails, the list keeps what it
/// held, and a message box reports the failure.
class ExclusionEditor {
public:
    struct Services {
        Settings& settings;
        Dialogs& dialogs;
        std::function<void()> enableApply;
        /// Asks the user for a node: its name, "|" and its type; empty where none is given.
        std::function<QString()> askForNode;
    };

    ExclusionEditor(OptionControls& controls, Services services)
        : controls_(controls)
        , list_(*controls.lvwExcNetNode)
        , services_(std::move(services))
        , settings_(services_.settings) {}

    /// Fills the list from the settings. Without any entry, excluding is switched off in the
    /// settings and in the dialog. Raises ErrorNumber::SubscriptOutOfRange for an entry of fewer
    /// than three fields, ErrorNumber::TypeMismatch for one that is neither on nor off.
    void Load();
    /// The rows as entries of the settings.
    [[nodiscard]] QStringList Entries() const;

    void ColumnClick(int column);
    void DeletePressed();
    void MouseDown(const QPoint& globalPosition);
    void mnuAddNetNode_Click();
    void mnuRemSel_Click();
    void mnuAddDef_Click();

private:
    void AddRow(const QString& name, bool enabled, const QString& type);
    [[nodiscard]] int RowOf(const QString& name, const QString& type) const;
    void AddAskedNode(const QString& node);
    void SelectOnly(int row);
    void RemoveSelected();
    void AddDefaults();

    OptionControls& controls_;
    ListView& list_;
    Services services_;
    Settings& settings_;
};

} // namespace netrove
