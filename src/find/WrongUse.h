#pragma once

#include <QCoreApplication>
#include <QString>

#include <exception>

namespace netrove {

/// The program was called in a way that it can't serve. The text tells the user why, in one line;
/// these texts are translated in the context of this class.
class WrongUse : public std::exception {
    Q_DECLARE_TR_FUNCTIONS(WrongUse)

public:
    explicit WrongUse(QString text) : text_(std::move(text)), what_(text_.toUtf8()) {}

    [[nodiscard]] const QString& Text() const { return text_; }
    [[nodiscard]] const char* what() const noexcept override { return what_.constData(); }

private:
    QString text_;
    QByteArray what_;
};

} // namespace netrove
