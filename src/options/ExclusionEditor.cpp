#include "options/ExclusionEditor.h"

#include "options/NodeTypes.h"
#include "runtime/SourceText.h"
#include "runtime/Text.h"
#include "runtime/Yield.h"
#include "windowservices/SortListView.h"

#include <utility>

namespace netrove {
namespace {

/// The sub-item that has the type.
constexpr int TypeItem = 1;

/// An entry of the settings, taken apart.
struct Entry {
    explicit Entry(const QString& text) : fields(text.split(u'|')) {}

    [[nodiscard]] QString Name() const { return fields.first(); }
    [[nodiscard]] bool IsEnabled() const {
        const QString word = Field(1);
        return !Trim(word).isEmpty() && ToBoolean(word);
    }
    [[nodiscard]] QString Type() const { return Field(2); }

    [[nodiscard]] QString Field(qsizetype number) const {
        if (number >= fields.size())
            throw RunTimeError(ErrorNumber::SubscriptOutOfRange);
        return fields[number];
    }

    QStringList fields;
};

} // namespace

void ExclusionEditor::Load() {
    list_.Clear();
    if (settings_.ExcNetNodes.isEmpty()) {
        settings_.ExcludeNetNodes = false;
        controls_.ExcNetNode.Set(false);
        return;
    }
    for (const QString& text : std::as_const(settings_.ExcNetNodes)) {
        const Entry entry(text);
        if (!Trim(entry.Name()).isEmpty())
            AddRow(entry.Name(), entry.IsEnabled(), entry.Type());
    }
}

QStringList ExclusionEditor::Entries() const {
    QStringList entries;
    for (int row = 1; row <= list_.Count(); ++row)
        entries.append(list_.Text(row) + u'|' + BooleanWord(list_.Checked(row)) + u'|' +
                       list_.SubItem(row, TypeItem));
    return entries;
}

void ExclusionEditor::AddRow(const QString& name, bool enabled, const QString& type) {
    const int row = list_.Add(name, NodeTypeKey(type));
    list_.SetSubItem(row, TypeItem, type);
    list_.SetChecked(row, enabled);
}

/// The row of a node of this name and type, in any case; 0 where there is none.
int ExclusionEditor::RowOf(const QString& name, const QString& type) const {
    const QString wanted = UpperCase(QString(name + type));
    for (int row = 1; row <= list_.Count(); ++row) {
        if (UpperCase(QString(list_.Text(row) + list_.SubItem(row, TypeItem))) == wanted)
            return row;
    }
    return 0;
}

void ExclusionEditor::ColumnClick(int column) {
    services_.dialogs.Trap(u"Error in Network Node Col Click"_s, [&] {
        if (list_.Count() == 0)
            return;
        SortListView(list_, column, column, false, services_.dialogs);
        list_.unsetCursor();
    });
}

void ExclusionEditor::DeletePressed() {
    services_.dialogs.Trap(u"ListView KeyDown Error"_s, [this] {
        if (services_.dialogs.Message(MessageIcon::Question, u"Delete the selected nodes?"_s,
                                      u"Delete Nodes?"_s,
                                      MessageButtons::YesNo) == MessageAnswer::Yes)
            mnuRemSel_Click();
    });
}

void ExclusionEditor::MouseDown(const QPoint& globalPosition) {
    controls_.mnuOptPopUp->popup(globalPosition);
}

void ExclusionEditor::mnuRemSel_Click() {
    services_.dialogs.Trap(u"Error while removing node"_s, [this] { RemoveSelected(); });
}

void ExclusionEditor::RemoveSelected() {
    Yield();
    list_.RemoveRows(list_.SelectedRows());
    list_.Refresh();
    services_.enableApply();
}

void ExclusionEditor::mnuAddDef_Click() {
    services_.dialogs.Trap(u"frmOpts.mnuAddDef_Click Error"_s, [this] { AddDefaults(); });
}

void ExclusionEditor::AddDefaults() {
    const QStringList& defaults = settings_.DefaultNetNodes;
    qsizetype present = 0;
    for (const QString& text : defaults) {
        const Entry entry(text);
        if (RowOf(entry.Name(), entry.Type()) != 0)
            ++present;
        else if (!Trim(entry.Name()).isEmpty())
            AddRow(entry.Name(), entry.IsEnabled(), entry.Type());
    }
    if (present > 0)
        services_.dialogs.Message(MessageIcon::Information,
                                  QString::number(present) +
                                      u" node(s) already existed in the list.\r\nAdded "_s +
                                      QString::number(defaults.size() - present) + u" node(s)."_s,
                                  u"Default node info"_s);
}

void ExclusionEditor::mnuAddNetNode_Click() {
    services_.dialogs.Trap(u"Error in Menu AddNetNode"_s, [this] {
        const QString node = services_.askForNode();
        if (!Trim(node).isEmpty())
            AddAskedNode(node);
    });
    list_.SetMultiSelect(true);
}

void ExclusionEditor::AddAskedNode(const QString& node) {
    const Entry answer(node);
    const QString name = answer.Name();
    QString type = answer.Field(1);
    if (const int row = RowOf(name, type); row != 0) {
        SelectOnly(row);
        services_.dialogs.Message(MessageIcon::Exclamation, u"Node already exists in the list."_s,
                                  u"Node warning"_s);
        return;
    }
    if (Trim(name).isEmpty()) {
        services_.dialogs.Message(MessageIcon::Critical, u"Invalid node name."_s, u"Node error"_s);
        return;
    }
    if (Trim(type).isEmpty())
        type = NodeTypes.front();
    AddRow(name, true, type);
    SelectOnly(list_.Count());
    services_.enableApply();
}

void ExclusionEditor::SelectOnly(int row) {
    list_.SetMultiSelect(false);
    list_.SetSelected(row, true);
    list_.SetCurrentRow(row);
    list_.EnsureVisible(row);
    list_.SetMultiSelect(true);
}

} // namespace netrove
