#include "platform/odbc/Line.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <exception>
#include <mutex>
#include <optional>
#include <utility>

#include "platform/odbc/Sockets.h"

namespace zelvo::odbc {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;
using std::chrono::seconds;

EnvironmentHandle environment() {
    EnvironmentHandle made(SQL_NULL_HANDLE);
    made.require(SQLSetEnvAttr(made.get(), SQL_ATTR_ODBC_VERSION, attribute(SQL_OV_ODBC3), 0));
    return made;
}

}  // namespace

/// The driver's handles. A call that is left behind keeps them: who lets go of them last frees them.
struct Line::Ends {
    explicit Ends(std::uint16_t port) : sockets(port) {}
    ~Ends() {
        if (connection && loggedIn) SQLDisconnect(connection->get());
    }
    Ends(const Ends&) = delete;
    Ends& operator=(const Ends&) = delete;

    /// A call begins, which nobody has given up.
    void begin() {
        givenUp = false;
        sign();
    }
    /// The driver is about to wait for the server, or has waited: its time begins anew.
    void sign() { since = Clock::now().time_since_epoch().count(); }
    Clock::time_point lastSign() const { return Clock::time_point(Clock::duration(since.load())); }
    /// True while the driver waits, with nothing there that would end its wait. FreeTDS bears a cancelling
    /// from another thread then alone: it takes away the messages that are being read of a call at its end.
    bool waits(Clock::time_point now) const {
        return now - lastSign() > milliseconds(100) && !sockets.haveUnread();
    }
    /// What the driver's call works on, for who cancels it meanwhile; nullptr for nothing.
    void workOn(SQLHANDLE handle) {
        const std::lock_guard lock(mutex);
        statement = handle;
    }
    void cancel() {
        const std::lock_guard lock(mutex);
        if (statement != SQL_NULL_HANDLE) SQLCancel(statement);
    }
    void logIn(std::string connectionString, int loginSeconds);
    void send(const std::string& text, int querySeconds, const std::function<void(Answer&)>& read);

    EnvironmentHandle environment = odbc::environment();
    std::optional<ConnectionHandle> connection;
    bool loggedIn = false;
    DriverSockets sockets;
    /// The rows that are still to come are nobody's.
    std::atomic<bool> givenUp{false};

private:
    std::atomic<Clock::rep> since{0};
    std::mutex mutex;
    SQLHANDLE statement = SQL_NULL_HANDLE;
};

void Line::Ends::logIn(std::string connectionString, int loginSeconds) {
    connection.emplace(environment.get());
    const auto limit = static_cast<SQLULEN>(loginSeconds);
    connection->require(
        SQLSetConnectAttrW(connection->get(), SQL_ATTR_LOGIN_TIMEOUT, attribute(limit), SQL_IS_UINTEGER));
    std::vector<SQLWCHAR> wide = toWide(connectionString);
    const SQLRETURN result =
        SQLDriverConnectW(connection->get(), nullptr, wide.data(), static_cast<SQLSMALLINT>(wide.size() - 1),
                          nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    std::fill(wide.begin(), wide.end(), SQLWCHAR{0});  // the password stood in it
    std::fill(connectionString.begin(), connectionString.end(), '\0');
    connection->require(result);
    loggedIn = true;
    sockets.settle();
}

void Line::Ends::send(const std::string& text, int querySeconds, const std::function<void(Answer&)>& read) {
    StatementHandle handle(connection->get());
    handle.require(SQLSetStmtAttrW(handle.get(), SQL_ATTR_QUERY_TIMEOUT,
                                   attribute(static_cast<SQLULEN>(querySeconds)), 0));
    // What stands between braces in a text is the doctor's, no escape of the driver's. Not every driver
    // scans.
    SQLSetStmtAttrW(handle.get(), SQL_ATTR_NOSCAN, attribute(SQL_NOSCAN_ON), 0);
    struct Working {
        Working(Ends& driver, SQLHANDLE statement) : ends(driver) { ends.workOn(statement); }
        ~Working() { ends.workOn(SQL_NULL_HANDLE); }
        Working(const Working&) = delete;
        Working& operator=(const Working&) = delete;
        Ends& ends;
    } const working(*this, handle.get());
    std::vector<SQLWCHAR> wide = toWide(text);
    sign();
    const SQLRETURN result =
        SQLExecDirectW(handle.get(), wide.data(), static_cast<SQLINTEGER>(wide.size() - 1));
    sign();
    if (result != SQL_NO_DATA) handle.require(result);
    Answer answer(
        handle, [this] { sign(); }, givenUp);
    read(answer);
    while (answer.next()) {
    }
}

/// Looks after a call from the thread that waits for it. What outlives its time has its line torn, or is
/// cancelled where a system does not tell its lines; a driver that heeds neither is left behind.
class Line::Watchdog {
public:
    Watchdog(Ends& ends, int limit, const data::Waiting& waiting)
        : ends_(ends), limit_(seconds(limit + 1)), waiting_(waiting) {}

    /// False when the call is to be left behind.
    bool goesOn() {
        const Clock::time_point now = Clock::now();
        switch (step_) {
            case Step::Watching:
                if (now - ends_.lastSign() > limit_ || isEnded(now)) {
                    end(now);
                } else if (isGivenUp(now)) {
                    ends_.givenUp = true;
                    stepTo(Step::GivenUp, now);
                    cancelWaiting(now);
                }
                return true;
            case Step::GivenUp:
                cancelWaiting(now);
                if (now - at_ > seconds(1)) end(now);
                return true;
            case Step::Torn:
                if (now - at_ > milliseconds(500)) cancel(now);
                return true;
            case Step::Cancelled:
                return now - at_ < seconds(1);
        }
        return true;
    }
    /// True when the line can't be trusted any more.
    bool hasCut() const { return step_ == Step::Cancelled || step_ == Step::Torn; }

private:
    enum class Step { Watching, GivenUp, Torn, Cancelled };

    /// Under TLS a driver may wait, and wait busily, on a line that the server has ended. What was still on
    /// its way has a second to be read.
    bool isEnded(Clock::time_point now) {
        constexpr milliseconds between(500), patience(1000);
        if (now - looked_ < between) return false;
        looked_ = now;
        if (now - ends_.lastSign() < between || !ends_.sockets.haveEnded()) {
            endSeen_.reset();
            return false;
        }
        if (!endSeen_) endSeen_ = now;
        return now - *endSeen_ >= patience;
    }
    bool isGivenUp(Clock::time_point now) {
        constexpr milliseconds unnoticed(500);
        if (!waiting_ || now - start_ < unnoticed) return false;
        try {
            if (!goesOn_) goesOn_ = waiting_(start_);
            return goesOn_ && !goesOn_();
        } catch (const std::exception&) {
            return false;  // a window that can't say so goes on waiting
        }
    }
    /// The line lives on when the server confirms it.
    void cancelWaiting(Clock::time_point now) {
        if (told_ || !ends_.waits(now)) return;
        ends_.cancel();
        told_ = true;
    }
    void end(Clock::time_point now) {
        if (!ends_.sockets.tear()) return cancel(now);
        stepTo(Step::Torn, now);
    }
    void cancel(Clock::time_point now) {
        ends_.cancel();
        stepTo(Step::Cancelled, now);
    }
    void stepTo(Step next, Clock::time_point now) {
        step_ = next;
        at_ = now;
    }

    Ends& ends_;
    Clock::duration limit_;
    const data::Waiting& waiting_;
    std::function<bool()> goesOn_;
    Clock::time_point start_ = Clock::now(), looked_ = start_, at_{};
    std::optional<Clock::time_point> endSeen_;
    Step step_ = Step::Watching;
    bool told_ = false;
};

Line::Line(const std::string& connectionString, Limits limits)
    : limits_(std::move(limits)), ends_(std::make_shared<Ends>(limits_.port)) {
    call(limits_.loginSeconds, [ends = ends_, connectionString, limit = limits_.loginSeconds] {
        ends->logIn(connectionString, limit);
    });
    const auto info = [this](SQLUSMALLINT what) {
        std::array<SQLWCHAR, 128> wide{};
        SQLSMALLINT bytes = 0;
        std::string text;
        if (SQL_SUCCEEDED(SQLGetInfoW(ends_->connection->get(), what, wide.data(),
                                      static_cast<SQLSMALLINT>(sizeof wide), &bytes))) {
            appendUtf8(text, wide.data(), std::min<std::size_t>(static_cast<std::size_t>(bytes) / 2, 127));
        }
        return text;
    };
    driver_ = info(SQL_DRIVER_NAME) + " " + info(SQL_DRIVER_VER);
    constexpr SQLUSMALLINT freeTdsProtocol = 1300;
    SQLGetInfoW(ends_->connection->get(), freeTdsProtocol, &protocol_, sizeof protocol_, nullptr);
}

Line::~Line() {
    close();
}

/// Says goodbye to the server on the line's own thread: a driver may hang there too.
void Line::close() noexcept {
    if (!ends_) return;
    try {
        const Clock::time_point start = Clock::now();
        caller_.run([ends = std::exchange(ends_, nullptr)]() mutable { ends.reset(); },
                    [start] { return Clock::now() - start < seconds(1); });
    } catch (const std::exception&) {
        // It is in use: who uses it lets go of it.
    }
}

/// Whatever comes then fails at once; a call that still runs keeps what it needs.
void Line::leave() noexcept {
    ends_.reset();
}

void Line::call(int limit, std::function<void()> work) {
    const auto failure = std::make_shared<std::exception_ptr>();
    Watchdog watchdog(*ends_, limit, limits_.waiting);
    ends_->begin();
    const bool ended = caller_.run(
        [work = std::move(work), failure] {
            try {
                work();
            } catch (...) {
                *failure = std::current_exception();
            }
        },
        [&watchdog] { return watchdog.goesOn(); });
    if (!ended) {
        leave();
        throw ServerFault("the driver does not come back", ServerFault::Kind::Broken, "left behind");
    }
    if (!*failure && !watchdog.hasCut()) return;
    SQLUINTEGER dead = SQL_CD_FALSE;
    if (ends_->loggedIn) {
        SQLGetConnectAttrW(ends_->connection->get(), SQL_ATTR_CONNECTION_DEAD, &dead, SQL_IS_UINTEGER,
                           nullptr);
    }
    if (!*failure) return close();  // the answer came as it was cancelled: it stands, and the line is left
    try {
        std::rethrow_exception(*failure);
    } catch (const ServerFault& fault) {
        const bool broken =
            fault.kind() == ServerFault::Kind::Broken || dead == SQL_CD_TRUE || watchdog.hasCut();
        if (!broken) throw;
        const ServerFault told(fault.what(), ServerFault::Kind::Broken, fault.code());
        close();
        throw told;
    }
}

void Line::talk(const std::string& text, std::function<void(Answer& answer)> read) {
    if (!isOpen()) throw basics::Fault("the connection is closed");
    call(limits_.querySeconds, [ends = ends_, text, read = std::move(read), limit = limits_.querySeconds] {
        ends->send(text, limit, read);
    });
}

SQLLEN Line::run(const std::string& statement) {
    const auto changed = std::make_shared<SQLLEN>(-1);
    talk(statement, [changed](Answer& answer) {
        // The counts of a trigger's statements stand before the statement's own.
        do {
            if (const SQLLEN count = answer.rowCount(); count >= 0) *changed = count;
        } while (answer.next());
    });
    return *changed;
}

void Line::query(const std::string& statement, std::function<void(Answer& answer)> read) {
    talk(statement, [read = std::move(read)](Answer& answer) {
        // A trigger's count of rows may stand before the rows that were asked for.
        while (answer.columnCount() == 0) {
            if (!answer.next()) throw basics::Fault("the statement returns no rows");
        }
        read(answer);
    });
}

}  // namespace zelvo::odbc
