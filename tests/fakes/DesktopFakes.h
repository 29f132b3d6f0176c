#pragma once

#include "platform/Dialogs.h"
#include "platform/Http.h"
#include "platform/Shell.h"
#include "platform/SystemInformation.h"
#include "runtime/RunTimeError.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <utility>
#include <vector>

namespace netrove {

/// Keeps the boxes that the program shows, and answers them by a button that they have.
class RecordedDialogs : public Dialogs {
public:
    QStringList Shown; ///< "title: text"
    /// The same boxes with what they are: "critical: title: text" has only OK; others name their
    /// buttons, and the default one in brackets: "exclamation, Yes/No(No): title: text".
    QStringList Whole;
    QStringList Inputs; ///< what is typed into the next input boxes; an empty list cancels them
    /// What is chosen in the next file choosers; an empty list cancels them.
    QStringList Files;
    std::vector<FileDialogSetup> Choosers; ///< those that were shown
    /// What the next choosers of folders, computers and fonts give, each once; they are cancelled
    /// otherwise.
    std::optional<QString> Folder;
    std::optional<QString> Computer;
    std::function<ChosenFont(ChosenFont)> Font;
    MessageAnswer Answer = MessageAnswer::Ok; ///< boxes without that button give their default
    std::function<void()> OnMessage;
    std::function<void()> OnInput; ///< while an input box is up; may throw

    /// What was shown, one box after the other.
    [[nodiscard]] std::string Boxes() const { return Shown.join(u'|').toStdString(); }
    [[nodiscard]] std::string WholeBoxes() const { return Whole.join(u'|').toStdString(); }
    /// The same, since the last time.
    std::string Take() { return Joined(Shown); }
    std::string TakeWhole() { return Joined(Whole); }

    MessageAnswer Message(MessageIcon icon, const QString& text, const QString& title,
                          MessageButtons buttons) override {
        const Offer offer = OfferOf(buttons);
        Record(IconName(icon) + offer.text, title + QStringLiteral(": ") + text);
        if (OnMessage)
            OnMessage();
        return offer.answers.contains(Answer) ? Answer : offer.answers.constLast();
    }
    QString InputBox(const QString& prompt, const QString& title) override {
        Record(QStringLiteral("input"), title + QStringLiteral(": ") + prompt);
        if (OnInput)
            OnInput();
        return Inputs.isEmpty() ? QString() : Inputs.takeFirst();
    }
    std::optional<QString> OpenFile(const FileDialogSetup& setup) override { return Choose(setup); }
    std::optional<QString> SaveFile(const FileDialogSetup& setup) override { return Choose(setup); }
    std::optional<QString> ChooseFolder(const QString& title, bool network,
                                        const QString& start) override {
        Record(QStringLiteral("folder"),
               title + (network ? QStringLiteral(" (network)") : QString()) +
                   (start.isEmpty() ? QString() : QStringLiteral(": ") + start));
        return std::exchange(Folder, std::nullopt);
    }
    std::optional<QString> ChooseComputer(const QString& title) override {
        Record(QStringLiteral("computer"), title);
        return std::exchange(Computer, std::nullopt);
    }
    std::optional<ChosenFont> ChooseFont(const ChosenFont& font) override {
        const auto choose = std::exchange(Font, nullptr);
        return choose ? std::optional(choose(font)) : std::nullopt;
    }

private:
    struct Offer {
        QString text;
        QList<MessageAnswer> answers; ///< the last one is the default button's
    };

    static Offer OfferOf(MessageButtons buttons) {
        switch (buttons) {
        case MessageButtons::Ok:
            return {{}, {MessageAnswer::Ok}};
        case MessageButtons::OkCancel:
            return {QStringLiteral(", OK/Cancel(OK)"), {MessageAnswer::Cancel, MessageAnswer::Ok}};
        case MessageButtons::YesNo:
            return {QStringLiteral(", Yes/No(No)"), {MessageAnswer::Yes, MessageAnswer::No}};
        }
        Q_UNREACHABLE();
    }

    static QString IconName(MessageIcon icon) {
        static const char* const names[] = {"none", "critical", "question", "exclamation",
                                            "information"};
        return QString::fromLatin1(names[int(icon)]);
    }

    void Record(const QString& kind, const QString& text) {
        Shown.append(text);
        Whole.append(kind + QStringLiteral(": ") + text);
    }

    std::string Joined(QStringList& boxes) {
        const std::string text = boxes.join(u'|').toStdString();
        Shown.clear();
        Whole.clear();
        return text;
    }

    std::optional<QString> Choose(const FileDialogSetup& setup) {
        Choosers.push_back(setup);
        if (Files.isEmpty())
            return std::nullopt;
        return Files.takeFirst();
    }
};

/// Keeps what it is asked to open, and gives one result code for all.
class RecordedShell : public Shell {
public:
    QStringList Opened;
    int Result = Shell::Success;
    bool IsChosen = false; ///< a program for what none is known for

    Failed FailLater;                    ///< of what was opened last
    ShellVerb Verb = ShellVerb::Default; ///< and how

    int Execute(const QString& file, ShellVerb verb, const Failed& failed) override {
        Opened.append(file);
        Verb = verb;
        FailLater = failed;
        return Result;
    }
    bool OpenWith(const QString& /*file*/, const Failed& /*failed*/) override { return IsChosen; }
    /// "net:" and the path's elements; nothing for what isn't a network path.
    std::optional<QUrl> Address(const QString& file) override {
        if (!file.startsWith(QLatin1String("\\\\")))
            return std::nullopt;
        return QUrl(QStringLiteral("net:") + QString(file).replace(u'\\', u'/'));
    }
};

/// Web sites of given texts by their addresses; all others can't be reached.
class RecordedHttp : public Http {
public:
    QHash<QString, QString> Pages;
    std::function<void()> OnRead; ///< while a page is read

    QString OpenURL(const QString& address) override {
        if (OnRead)
            OnRead();
        if (!Pages.contains(address))
            throw RunTimeError(ErrorNumber::DeviceUnavailable);
        return Pages.value(address);
    }
};

class TestSystem : public SystemInformation {
public:
    QString OSName() const override { return QStringLiteral("Test OS"); }
    QString OSVersion() const override { return QStringLiteral("1.2.3"); }
    QString UserName() const override { return QStringLiteral("tester"); }
    QString ComputerName() const override { return QStringLiteral("ThisOne"); }
};

} // namespace netrove
