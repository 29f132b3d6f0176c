#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QString>

#include <vector>

namespace netrove {

/// The name of the button in a painted title bar that closes the window.
inline constexpr QLatin1String CloseBoxName("frameButtonClose");

/// Lives while a dialog waits for a read from the web. What the user types or clicks meanwhile
/// isn't meant for what the dialog shows afterwards, and is dropped. What closes the dialog works
/// at once, though, and abandons the read: its waits end. For the thread of the windows; a dialog
/// has one at a time.
class DialogRead {
public:
    /// `cancel` is the button that closes the dialog.
    DialogRead(QDialog& dialog, QAbstractButton& cancel);
    DialogRead(const DialogRead&) = delete;
    DialogRead& operator=(const DialogRead&) = delete;
    /// Drops what the user has done until now.
    ~DialogRead();

    /// The read in progress; null if there is none.
    [[nodiscard]] static const DialogRead* Current() { return current_; }

    /// Whether the user has closed the dialog.
    [[nodiscard]] bool IsGivenUp() const { return !dialog_.isVisible(); }
    /// Whether the window, a QWindow, is the dialog's.
    [[nodiscard]] bool IsOf(const QObject& window) const;
    /// The buttons that close the dialog: its own, and the one of a painted frame.
    [[nodiscard]] const std::vector<QAbstractButton*>& Closers() const { return closers_; }

private:
    static inline const DialogRead* current_ = nullptr;

    const DialogRead* previous_;
    QDialog& dialog_;
    std::vector<QAbstractButton*> closers_;
};

} // namespace netrove
