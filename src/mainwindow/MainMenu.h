#pragma once

#include <QAction>
#include <QHash>
#include <QMenuBar>
#include <QObject>
#include <QStringList>

#include <functional>
#include <vector>

namespace netrove {

/// The menus of the main window: those of its menu bar, and the pop-up menus, which are shown only
/// at the mouse. Every menu and item is known by its name, which is its objectName too.
///
/// An item is enabled when Connect() gives it work. A withheld item, whose work needs something
/// that is missing, stays disabled whatever jobs come and go.
class MainMenu : public QObject {
    Q_OBJECT

public:
    /// Fills `bar`; the pop-up menus become children of `window`.
    MainMenu(QMenuBar& bar, QWidget& window, QStringList withheld);

    /// The item or menu with that name. Raises ErrorNumber::KeyNotFound.
    [[nodiscard]] QAction* Item(const QString& name) const;
    [[nodiscard]] QMenu* Menu(const QString& name) const;

    /// Gives the item its work and enables it; does nothing for a withheld one.
    void Connect(const QString& name, const QObject* context, std::function<void()> work);

    /// Those of the named items and menus that aren't withheld, for EnableButtons.
    [[nodiscard]] std::vector<QAction*> Offered(const QStringList& names) const;

private:
    QMenu* AddMenu(const QString& name, const QString& caption, QWidget* parent);
    void AddItem(QMenu& menu, const QString& name, const QString& caption);

    QHash<QString, QMenu*> menus_;
    QHash<QString, QAction*> items_;
    QStringList withheld_;
};

} // namespace netrove
