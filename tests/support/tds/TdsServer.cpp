#include "support/tds/TdsServer.h"

#include <netinet/tcp.h>
#include <sqlite3.h>

#include <algorithm>
#include <chrono>
#include <stdexcept>
#include <utility>

#include "basics/Text.h"
#include "platform/sqlite/Dialect.h"
#include "platform/sqlite/Functions.h"
#include "support/tds/TdsPipe.h"
#include "support/tds/TdsWire.h"

namespace zelvo::testing {
namespace {

constexpr char batchPacket = 1, answerPacket = 4, attentionPacket = 6, loginPacket = 16, preloginPacket = 18;

/// A batch as SQLite reads it: sums of texts, N'', and what a backslash before a line end does in a text.
std::string toSqlite(std::string_view batch) {
    std::string text;
    bool inside = false;
    for (std::size_t at = 0; at < batch.size();) {
        const std::string_view rest = batch.substr(at);
        const auto step = [&](std::string_view what, std::string_view with) {
            if (!rest.starts_with(what)) return false;
            text += with;
            at += what.size();
            return true;
        };
        if (inside && (step("\\\r\n", "") || step("\\\n", ""))) continue;
        if (!inside && (step("CAST('' AS varchar(max)) + ", "") ||
                        step("CAST(N'' AS nvarchar(max)) + ", "") || step(" + ", " || "))) {
            continue;
        }
        if (!inside && rest.starts_with("N'")) {
            ++at;
            continue;
        }
        inside ^= batch[at] == '\'';
        text += batch[at++];
    }
    return sqlite::toSqlite(text);
}

}  // namespace

/// One client at the desk.
class TdsTalk {
public:
    TdsTalk(TdsServer& server, int socket) : server_(server), pipe_(socket) {
        if (sqlite3_open(server.path_.c_str(), &database_) != SQLITE_OK)
            throw std::runtime_error("no database");
        sqlite3_busy_timeout(database_, 5000);
        // No power is cut here, and a disk that has much to write down would pass for a slow server.
        sqlite3_exec(database_, "PRAGMA synchronous = OFF", nullptr, nullptr, nullptr);
        sqlite::registerServerFunctions(database_);
    }
    ~TdsTalk() { sqlite3_close(database_); }

    void run() {
        char kind = 0;
        std::string body;
        while (receive(kind, body)) {
            if (muted_) continue;
            if (kind == preloginPacket || kind == loginPacket) {
                if (troubled(kind == preloginPacket ? "" : "LOGIN7")) return;
                if (muted_) continue;
            }
            if (kind == preloginPacket) {
                const bool tls = server_.tls;
                send(std::string("\0\0\x0B\0\6\1\0\x11\0\1\xFF\x10\0\0\0\0\0", 17) +
                     static_cast<char>(tls ? 1 : 2));
                if (tls && !pipe_.agreeOnTls()) return;
            } else if (kind == loginPacket) {
                login(body);
                send(tds::loginAnswer("zelvo"));
            } else if (kind == attentionPacket) {
                send(tds::done(0x20, 0));
            } else if (kind == batchPacket) {
                const std::size_t headers = static_cast<unsigned char>(body.at(0));
                if (!batch(tds::fromUtf16(std::string_view(body).substr(headers)))) return;
            } else {
                send(tds::errorAnswer(50001, "a call of a procedure, where a batch was expected"));
            }
        }
    }

private:
    bool receive(char& kind, std::string& body) {
        body.clear();
        for (bool last = false; !last;) {
            char head[8];
            if (!pipe_.read(head, sizeof head)) return false;
            const std::size_t size =
                static_cast<unsigned char>(head[2]) * 256U + static_cast<unsigned char>(head[3]) - 8;
            std::string piece(size, '\0');
            if (!pipe_.read(piece.data(), size)) return false;
            body += piece;
            kind = head[0];
            last = (head[1] & 1) != 0;
        }
        return true;
    }

    void send(std::string_view answer, bool half = false) {
        constexpr std::size_t most = 4096 - 8;
        const std::size_t end = half ? answer.size() / 2 : answer.size();
        for (std::size_t at = 0; at < end; at += most) {
            const std::string_view piece = answer.substr(at, most);
            const bool last = at + piece.size() == answer.size();
            const std::size_t size = piece.size() + 8;
            const char head[8] = {answerPacket,
                                  static_cast<char>(last ? 1 : 0),
                                  static_cast<char>(size >> 8),
                                  static_cast<char>(size),
                                  0,
                                  0,
                                  1,
                                  0};
            const std::string packet = std::string(head, 8).append(piece.substr(0, end - at));
            pipe_.write(packet, server_.smallPieces ? 7 : packet.size());
        }
    }

    void login(const std::string& body) {
        const auto field = [&](std::size_t place) {
            const auto number = [&](std::size_t at) {
                return static_cast<unsigned char>(body.at(at)) +
                       static_cast<unsigned char>(body.at(at + 1)) * 256U;
            };
            return body.substr(number(place), number(place + 2) * 2U);
        };
        std::string password = field(44);
        for (char& c : password) {
            const auto plain = static_cast<unsigned char>(c ^ '\xA5');
            c = static_cast<char>(plain << 4 | plain >> 4);
        }
        const std::lock_guard lock(server_.mutex_);
        server_.login_ = {tds::fromUtf16(field(40)), tds::fromUtf16(password), tds::fromUtf16(field(68)),
                          tds::fromUtf16(field(64)), pipe_.encrypted()};
    }

    /// True when the line is to be cut.
    bool troubled(const std::string& text) {
        using Trouble = TdsServer::Trouble;
        trouble_ = server_.troubleAt(text);
        if (trouble_ == Trouble::EndInOrder) pipe_.end(TdsPipe::End::InOrder);
        if (trouble_ == Trouble::EndHalf) pipe_.end(TdsPipe::End::Half);
        if (trouble_ == Trouble::Reset) pipe_.end(TdsPipe::End::Reset);
        muted_ = trouble_ == Trouble::Mute || trouble_ == Trouble::EndHalf;
        return trouble_ == Trouble::CutBeforeRun || trouble_ == Trouble::EndInOrder ||
               trouble_ == Trouble::Reset;
    }

    /// False when the line is to be cut.
    bool batch(const std::string& text) {
        std::this_thread::sleep_for(std::chrono::milliseconds(server_.milliseconds));
        if (troubled(text)) return false;
        if (trouble_ == TdsServer::Trouble::Slow)
            std::this_thread::sleep_for(std::chrono::milliseconds(2050));
        if (muted_ || trouble_ == TdsServer::Trouble::Late) return true;
        const std::string answer = answerToTrip(text);
        if (trouble_ == TdsServer::Trouble::LateAfterRun) return true;
        if (trouble_ == TdsServer::Trouble::CutBeforeAnswer) return false;
        send(answer, trouble_ == TdsServer::Trouble::CutInAnswer);
        return trouble_ != TdsServer::Trouble::CutInAnswer;
    }

    /// Several statements, each of which ends the batch when it fails.
    std::string answerToTrip(const std::string& batch) {
        std::string all;
        for (const std::string& text : basics::split(batch, "\nIF @@ERROR <> 0 RETURN\n")) {
            constexpr std::size_t status = 12;  // from the end, where each answer has how it ended
            if (!all.empty()) all[all.size() - status] |= 1;
            all += fails(text) ? failure(text) : answerTo(text);
            if ((all[all.size() - status] & 2) != 0) break;
        }
        return all;
    }

    bool fails(const std::string& text) const {
        const std::lock_guard lock(server_.mutex_);
        return (trouble_ == TdsServer::Trouble::Deadlock || trouble_ == TdsServer::Trouble::Constraint) &&
               text.find(server_.troubleText_) != std::string::npos;
    }

    std::string failure(const std::string& text) {
        if (trouble_ == TdsServer::Trouble::Constraint) return tds::errorAnswer(2627, text);
        sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
        return tds::errorAnswer(1205, "chosen as the deadlock victim");
    }

    std::string answerTo(const std::string& batch) {
        std::string text = batch;
        if (text.starts_with("set textsize")) return tds::done(0, 0);
        // The one batch of two: an insert and the question for its key.
        const std::size_t question = text.find("; SELECT CONVERT(int, SCOPE_IDENTITY())");
        if (question != std::string::npos) {
            const std::string inserted = answerTo(text.substr(0, question));
            if (!inserted.starts_with(tds::done(0x10, 1).front())) return inserted;
            std::string asked = text.substr(question + 2, text.find(" WHERE IDENT_CURRENT(") - question - 2);
            const std::string key = "CONVERT(int, SCOPE_IDENTITY())";
            for (std::size_t at = asked.find(key); at != std::string::npos; at = asked.find(key))
                asked.replace(at, key.size(), "last_insert_rowid()");
            return tds::done(0x11, 1) + answerTo(asked);
        }
        if (text.starts_with("BEGIN TRANSACTION")) text = "BEGIN IMMEDIATE";
        if (text == "IF @@TRANCOUNT > 0 ROLLBACK TRANSACTION") {
            if (sqlite3_get_autocommit(database_) != 0) return tds::done(0, 0);
            text = "ROLLBACK";
        }
        sqlite3_stmt* statement = nullptr;
        const std::string translated = toSqlite(text);
        int result = sqlite3_prepare_v2(database_, translated.c_str(), -1, &statement, nullptr);
        if (result == SQLITE_OK) result = sqlite3_step(statement);
        tds::Bytes out;
        std::vector<tds::Column> columns;
        for (int i = 0; i < sqlite3_column_count(statement); ++i) columns.emplace_back(statement, i);
        if (!columns.empty()) out.number(0x81, 1).number(columns.size(), 2);
        for (const tds::Column& column : columns) column.describe(out);
        std::uint64_t rows = 0;
        for (; result == SQLITE_ROW; result = sqlite3_step(statement), ++rows) {
            out.number(0xD1, 1);
            for (std::size_t i = 0; i < columns.size(); ++i)
                columns[i].value(out, statement, static_cast<int>(i));
        }
        const std::string message = sqlite3_errmsg(database_);
        sqlite3_finalize(statement);
        if (result != SQLITE_DONE)
            return out.get() + tds::errorAnswer(result == SQLITE_CONSTRAINT ? 2627 : 208, message);
        if (columns.empty()) rows = static_cast<std::uint64_t>(sqlite3_changes64(database_));
        return out.get() + tds::done(0x10, rows);
    }

    TdsServer& server_;
    TdsPipe pipe_;
    sqlite3* database_ = nullptr;
    bool muted_ = false;
    TdsServer::Trouble trouble_ = TdsServer::Trouble::None;
};

TdsServer::TdsServer(std::string databasePath) : path_(std::move(databasePath)) {
    port_.listen();
    server_ = std::thread([this] { serve(); });
}

TdsServer::~TdsServer() {
    ending_ = true;
    port_.close();
    server_.join();
    for (const int socket : sockets_) ::shutdown(socket, SHUT_RDWR);
    for (std::thread& talk : talks_) talk.join();
    for (const int socket : sockets_) ::close(socket);
}

void TdsServer::serve() {
    while (!ending_) {
        const int socket = port_.accept();
        if (socket < 0) continue;
        if (deaf_) {
            ::close(socket);
            continue;
        }
        const int on = 1;
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        sockets_.push_back(socket);
        talks_.emplace_back([this, socket] {
            TdsTalk(*this, socket).run();
            ::shutdown(socket, SHUT_RDWR);
        });
    }
}

void TdsServer::misbehave(const std::string& text, Trouble trouble) {
    const std::lock_guard lock(mutex_);
    troubleText_ = text;
    trouble_ = trouble;
}

TdsServer::Trouble TdsServer::troubleAt(const std::string& text) {
    const std::lock_guard lock(mutex_);
    if (!text.empty()) batches_.push_back(text);
    const bool meant = troubleText_.empty() ? text.empty() : text.find(troubleText_) != std::string::npos;
    if (!meant) return Trouble::None;
    deaf_ = alone && trouble_ != Trouble::None;
    return std::exchange(trouble_, Trouble::None);
}

TdsServer::Login TdsServer::takeLogin() {
    const std::lock_guard lock(mutex_);
    return std::exchange(login_, {});
}

std::vector<std::string> TdsServer::takeBatches() {
    const std::lock_guard lock(mutex_);
    return std::exchange(batches_, {});
}

}  // namespace zelvo::testing
