#pragma once

#include <QByteArray>
#include <QString>

namespace netrove {

/// Standard output, standard error or another file descriptor, which it doesn't own. What is
/// written is buffered until Flush(), or until there is a lot of it.
class ConsoleOutput {
public:
    explicit ConsoleOutput(int descriptor);

    [[nodiscard]] bool IsTerminal() const { return isTerminal_; }
    /// Columns of the terminal; 0 if that isn't known.
    [[nodiscard]] int Columns() const;

    void Write(const QByteArray& text);
    void WriteLine(const QString& line) { Write(line.toUtf8() + '\n'); }
    void Flush();
    [[nodiscard]] bool HasUnwritten() const { return !buffer_.isEmpty(); }

    /// The errno of the failure after which nothing more is written; 0 if there was none.
    [[nodiscard]] int Error() const { return error_; }

private:
    int descriptor_;
    bool isTerminal_;
    int error_ = 0;
    QByteArray buffer_;
};

} // namespace netrove
