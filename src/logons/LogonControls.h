#pragma once

#include <QCoreApplication>
#include <QDialog>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

namespace netrove {

/// The controls of the logons dialog, by their names (which are their objectNames too), and their
/// places.
struct LogonControls {
    explicit LogonControls(QDialog& dialog);

    QTreeWidget* lvwLogons;
    QPushButton* cmdAdd;
    QPushButton* cmdChange;
    QPushButton* cmdRemove;
    QPushButton* cmdTest;
    QPushButton* cmdClose;
    QLabel* lblState;      ///< what is in progress, and how it ended
    QProgressBar* barBusy; ///< shown while something is in progress
    QPushButton* cmdCancel;

private:
    void MakeList();
    void Arrange(QDialog& dialog);

    Q_DECLARE_TR_FUNCTIONS(LogonControls)
};

} // namespace netrove
