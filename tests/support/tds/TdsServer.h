#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "support/Loopback.h"

namespace zelvo::testing {

/// No SQL Server: a desk that speaks as much of TDS 7.4 as FreeTDS needs, with a SQLite file behind it, and
/// that can be told to misbehave, in the clear or under TLS. It shows what the client sends, that native
/// types, errors and transactions come through the real driver, and what a broken line does. It proves
/// nothing of SQL Server's grammar, types, locks, collations or code pages: it has none of its own.
class TdsServer {
public:
    /// What a connection does at a batch that holds a certain text, or at its login.
    enum class Trouble {
        None,
        Mute,             ///< reads on and says nothing
        Late,             ///< says nothing until the client gives the batch up, and lives on
        LateAfterRun,     ///< runs the statement, and then the same
        Slow,             ///< answers after two seconds
        Deadlock,         ///< the statement fails and the server has ended the transaction
        Constraint,       ///< the statement fails, and the server tells all of it
        CutBeforeRun,     ///< the line is cut, the statement never ran
        CutBeforeAnswer,  ///< the statement ran, the line is cut
        CutInAnswer,      ///< half of the answer, then the line is cut
        EndInOrder,       ///< the statement never runs, the line is ended as one ends it
        EndHalf,          ///< the same, but what the client still says is taken
        Reset             ///< the same, without a word
    };
    struct Login {
        std::string user, password, database, language;
        bool encrypted = false;
    };

    explicit TdsServer(std::string databasePath);
    ~TdsServer();
    TdsServer(const TdsServer&) = delete;
    TdsServer& operator=(const TdsServer&) = delete;

    std::string address() const { return port_.address(); }
    /// Once, at the next batch with `text` in it; "" is the first word of a login, "LOGIN7" its second.
    void misbehave(const std::string& text, Trouble trouble);
    /// Agrees on TLS with whoever asks for it.
    std::atomic<bool> tls = false;
    /// All answers go out a few bytes at a time.
    std::atomic<bool> smallPieces = false;
    /// Takes nobody in any more once it has misbehaved.
    std::atomic<bool> alone = false;
    /// Waited before each answer.
    std::atomic<int> milliseconds = 0;

    /// Nothing in it when nobody has logged in since the last call.
    Login takeLogin();
    /// The batches since the last call, as they came.
    std::vector<std::string> takeBatches();

private:
    friend class TdsTalk;
    void serve();
    Trouble troubleAt(const std::string& text);

    std::string path_;
    const Loopback port_;
    mutable std::mutex mutex_;
    std::string troubleText_;
    Trouble trouble_ = Trouble::None;
    Login login_;
    std::vector<std::string> batches_;
    std::list<int> sockets_;
    std::list<std::thread> talks_;
    std::atomic<bool> ending_ = false, deaf_ = false;
    std::thread server_;
};

}  // namespace zelvo::testing
