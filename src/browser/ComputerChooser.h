#pragma once

#include "network/NetResource.h"
#include "platform/NetworkEnumeration.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>

#include <optional>

namespace netrove {

/// Lets the user choose a computer: shows the network as a tree, down to its computers. The dialog
/// reads the network while it is open, and can be used and closed meanwhile.
class ComputerChooser : public QDialog {
    Q_OBJECT

public:
    ComputerChooser(NetworkEnumeration& network, const QString& title, QWidget* parent);

    /// Shows the dialog over `parent` and waits for its end. Returns the computer's name without
    /// "\\", or nothing if the user has chosen none.
    [[nodiscard]] static std::optional<QString> Choose(NetworkEnumeration& network,
                                                       const QString& title, QWidget* parent);

    /// The name of the chosen computer, without "\\"; empty if none is chosen.
    [[nodiscard]] QString Computer() const;

    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Arrange(QDialogButtonBox& buttons);
    void ReadNetwork();
    void AddChildren(NetResource& node, QTreeWidgetItem& item);
    QTreeWidgetItem& AddItem(const NetResource& node, QTreeWidgetItem& parent, bool isComputer);

    NetworkEnumeration& network_;
    QTreeWidget* tvwComputers_;
    QLabel* lblState_;
    QPushButton* cmdOk_;
    int computers_ = 0;
    bool isStarted_ = false;
    bool isDone_ = false;
};

} // namespace netrove
