#pragma once

#include "platform/ReadAhead.h"
#include "redirector/FolderTrail.h"
#include "redirector/Junctions.h"
#include "redirector/SmbLists.h"
#include "smb/SmbMessages.h"

#include <QHash>
#include <QString>

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <vector>

namespace netrove {

/// What a walk will ask for, in the walk's order: depth first, in the order of the listings, and
/// what is read of a folder's files before its subfolders. It tells what is to be asked next, keeps
/// what has been answered until the walk comes to it, and grows with each answer. Places are named
/// by FolderKeys.h. Used under its owner's lock.
class WalkOrder {
public:
    /// How much may wait unused before nothing more is asked for. Half of it is reserved for the
    /// computer that the walk is at.
    struct Limits {
        std::size_t answers = 1000;
        qint64 bytes = 40'000'000; ///< as MemoryOf counts
    };

    /// A place to begin at.
    struct Start {
        SmbRequest request; ///< ListShares, ListFolder, or Read for all that is read of a file
        QString server;     ///< a name for the server that it goes to
        QString key;
        QString path; ///< a computer's remote name, a folder's path with its closing "\", a file's
        qsizetype nodeLength = 0; ///< as in WalkPlan::EntersFolder
    };

    /// A number that no question has.
    static constexpr quint64 NoQuestion = 0;

    struct Question {
        quint64 id = NoQuestion;
        SmbRequest request = {};
        SmbEntry file = {}; ///< of a file: as its folder lists it
        QString path = {};  ///< of a file
    };

    /// Whether a request may be sent now; `waiting` requests wait for its server, with this one.
    using Grant = std::function<bool(const SmbRequest& request, std::size_t waiting)>;

    explicit WalkOrder(std::shared_ptr<const WalkPlan> plan)
        : WalkOrder(std::move(plan), Limits()) {}
    WalkOrder(std::shared_ptr<const WalkPlan> plan, const Limits& limits)
        : plan_(std::move(plan)), limits_(limits) {}

    /// Puts places before all others.
    void Expect(const std::vector<Start>& starts);

    /// Takes out a place and all that lies below it.
    void Forget(const QString& key);

    /// The nearest question that hasn't been asked yet and may be asked now.
    [[nodiscard]] std::optional<Question> Next(const Grant& grant);

    /// The next folder, where the walk has only one computer to go through.
    [[nodiscard]] std::optional<SmbRequest> FolderOfOnlyComputer() const;

    /// Takes the answer to a question. The places that it lists come right after its own.
    void Answer(quint64 id, SmbList answer);
    /// The question has come to nothing: the walk will ask itself.
    void Drop(quint64 id);

    enum class State {
        Unknown, ///< the walk isn't expected there
        Waiting, ///< hasn't been asked yet
        Asked,
        Answered,
    };
    /// The state of the place that the walk has come to. Entries before it in the same folder are
    /// passed over, and so are all files of its server before it.
    [[nodiscard]] State Reach(const QString& key);
    /// The walk asks itself; returns the question's number. The place's state must be Waiting.
    [[nodiscard]] quint64 Ask(const QString& key);
    /// Gives out the place's answer, and forgets the place. Its state must be Answered.
    [[nodiscard]] SmbList Take(const QString& key);

private:
    /// A place, or the rest of the files that are read of a folder, or the rest of its subfolders.
    struct Step {
        enum class Kind { Place, Files, Subfolders };

        Kind kind = Kind::Place;
        State state = State::Waiting;
        bool isDropped = false; ///< left to the walk itself to ask
        quint64 id = 0;
        Start start;
        int depth = 0;
        FolderTrail trail = {}; ///< to the place, or to the files or subfolders
        SmbEntry file = {};     ///< of a place that is a file
        SmbList list = {};
        qint64 bytes = 0;     ///< which its answer takes
        std::size_t next = 0; ///< index of the first entry whose turn hasn't come
        qsizetype left = 0;   ///< number of files or folders from there on

        [[nodiscard]] bool IsOfFiles() const {
            return kind == Kind::Files || start.request.kind == SmbRequest::Kind::Read;
        }
    };
    using Steps = std::list<Step>;

    Steps::iterator Insert(Steps::iterator before, Step step);
    void Erase(Steps::iterator step);
    [[nodiscard]] Steps::iterator FindId(quint64 id);
    void AddShares(Steps::iterator computer);
    void AddContents(Steps::iterator folder, const SmbListing& listing);
    void AddSubfolders(Steps::iterator folder, const SmbListing& listing);
    void AddFiles(Steps::iterator folder, const SmbEntries& listing);
    void Advance(Step& step);
    [[nodiscard]] bool HasQuestion(Steps::iterator step, bool isNear);
    [[nodiscard]] SmbRequest RequestOf(const Step& step) const;
    [[nodiscard]] Steps::iterator PlaceOf(Steps::iterator step);
    [[nodiscard]] quint64 MarkAsked(Step& place);
    [[nodiscard]] bool IsEntered(const Step& step, const SmbEntry& entry) const;
    [[nodiscard]] static Step Below(const Step& step, const SmbEntry& entry);
    void PassTo(const QString& key);
    void DropFilesBefore(Steps::iterator place);
    [[nodiscard]] bool IsNear(const Step& step) const;
    [[nodiscard]] bool IsFull(bool isNear) const;
    void Count(const Step& step, qsizetype places) { waiting_[step.start.server] += places; }

    std::shared_ptr<const WalkPlan> plan_;
    Limits limits_;
    Steps steps_;
    QString reached_; ///< the server that the walk has come to
    QHash<QString, Steps::iterator> places_;
    QHash<QString, Steps::iterator> files_;      ///< by the folder's key
    QHash<QString, Steps::iterator> subfolders_; ///< by the folder's key
    QHash<QString, qsizetype> waiting_;          ///< by server
    Junctions junctions_;
    quint64 lastId_ = 0;
    std::size_t unused_ = 0; ///< answers that the walk hasn't come to
    qint64 unusedBytes_ = 0;
};

} // namespace netrove
