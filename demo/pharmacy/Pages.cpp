#include "pharmacy/Pages.h"

#include <httplib.h>

#include <algorithm>
#include <atomic>
#include <thread>

#include "basics/Utf8.h"
#include "pharmacy/CostDesk.h"
#include "pharmacy/Embedded.h"
#include "pharmacy/PostalTable.h"
#include "pharmacy/System.h"

namespace zelvo::pharmacy {
namespace {

constexpr auto host = "127.0.0.1";
constexpr auto html = "text/html; charset=utf-8";
constexpr auto plain = "text/plain; charset=utf-8";
constexpr std::size_t largestBody = std::size_t{1024} * 1024;
constexpr std::size_t threads = 4;
constexpr int httpNotFound = 404;
constexpr int httpTooLarge = 413;
constexpr int httpServerError = 500;

void fail(httplib::Response& response, int status, const std::string& text) {
    response.status = status;
    response.set_content(text, plain);
}

/// The whole body, read here because the server's own reading of forms ends at 8 KiB and a long prescription
/// does not.
bool readBody(const httplib::ContentReader& reader, std::string& body) {
    return reader([&](const char* data, std::size_t size) {
        body.append(data, size);
        return body.size() <= largestBody;
    });
}

using Answer = std::string (*)(const PharmacyBook&, const FormFields&);

void answerForm(const std::string& databasePath, Answer answer, const httplib::ContentReader& reader,
                httplib::Response& response) {
    std::string body;
    if (!readBody(reader, body)) return fail(response, httpTooLarge, "요청이 너무 큽니다.");
    try {
        const PharmacyBook book(databasePath);
        response.set_content(answer(book, readForm(body)), html);
    } catch (const std::exception& problem) {
        fail(response, httpServerError, std::string("한약국 자료를 읽을 수 없습니다. ") + problem.what());
    }
}

/// A notice's page by its key, or a picture of one by its file's name. A page says itself what charset it is
/// in.
void showNotice(const httplib::Request& request, httplib::Response& response) {
    const std::string name = request.matches[1].str();
    const bool picture = name.ends_with(".png");
    const auto& pages = noticePages();
    const auto page = std::find_if(pages.begin(), pages.end(), [&](const EmbeddedFile& file) {
        return file.name == (picture ? name : name + ".html");
    });
    if (page == pages.end()) return fail(response, httpNotFound, "공지사항이 없습니다.");
    response.set_content(page->text.data(), page->text.size(), picture ? "image/png" : "text/html");
}

}  // namespace

struct Pages::Insides {
    std::string databasePath;
    httplib::Server server;
    std::thread thread;
    std::atomic<bool> serving{false};
};

Pages::Pages(std::string databasePath) : insides_(std::make_unique<Insides>()) {
    insides_->databasePath = std::move(databasePath);
    const auto& path = insides_->databasePath;
    auto& server = insides_->server;
    server.new_task_queue = [] { return std::make_unique<httplib::ThreadPool>(threads).release(); };
    server.set_payload_max_length(largestBody);
    // Without this a second server could take the same port and answer half of the requests.
    server.set_socket_options([](socket_t socket) { keepPort(static_cast<std::uintptr_t>(socket)); });
    const auto form = [&path](Answer answer) {
        return [&path, answer](const httplib::Request&, httplib::Response& response,
                               const httplib::ContentReader& reader) {
            answerForm(path, answer, reader, response);
        };
    };
    server.Post("/cost", form(answerCost));
    server.Post("/cost-update", form(answerCostUpdate));
    server.Get("/zip", [](const httplib::Request& request, httplib::Response& response) {
        response.set_content(findPlaces(basics::cleanUtf8(request.get_param_value("find"))), plain);
    });
    server.Get(R"(/notice/(\d+|[a-z]+\.png))", showNotice);
}

Pages::~Pages() {
    stop();
}

int Pages::bind(int port) {
    auto& server = insides_->server;
    if (port == 0) return std::max(server.bind_to_any_port(host), 0);
    return server.bind_to_port(host, port) ? port : 0;
}

void Pages::start() {
    insides_->serving = true;
    insides_->thread = std::thread([insides = insides_.get()] {
        insides->server.listen_after_bind();
        insides->serving = false;
    });
}

void Pages::stop() {
    if (!insides_->thread.joinable()) return;
    // A stop before the listening has begun would be lost.
    while (insides_->serving && !insides_->server.is_running()) std::this_thread::yield();
    insides_->server.stop();
    insides_->thread.join();
}

bool Pages::isServing() const {
    return insides_->serving;
}

}  // namespace zelvo::pharmacy
