#pragma once

#include <QByteArray>
#include <QString>

namespace netrove {

/// Standard output or standard error, or another file descriptor, which stays its owner's. What is
/// written is kept until Flush() or until it is much.
class ConsoleOutput {
public:
    explicit ConsoleOutput(int descriptor);

    [[nodiscard]] bool IsTerminal() const { return isTerminal_; }
    /// Columns of the terminal; 0 where that isn't known.
    [[nodiscard]] int Columns() const;

    void Write(const QByteArray& text);
    void WriteLine(const QString& line) { Write(line.toUtf8() + '\n'); }
    void Flush();
    [[nodiscard]] bool HasUnwritten() const { return !buffer_.isEmpty(); }

    /// The system's number of the failure after which nothing more is written, 0 if there was none.
    [[nodiscard]] int Error() const { return error_; }

private:
    int descriptor_;
    bool isTerminal_;
    int error_ = 0;
    QByteArray buffer_;
};

} // namespace netrove
