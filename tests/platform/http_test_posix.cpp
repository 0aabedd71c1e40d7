#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "basics/Fault.h"
#include "platform/CannedServer.h"
#include "platform/http/PostalPage.h"
#include "platform/http/WebPage.h"
#include "platform/http/clsOrderCostText.h"
#include "support/Certificate.h"
#include "support/TestFolder.h"

namespace zelvo::http {
namespace {

using namespace std::chrono_literals;
using testing::CannedServer;

struct Noted : basics::SupportRecord {
    void add(std::string_view line) noexcept override { text += line; }
    std::string lastLines() const override { return text; }
    std::string text;
};

/// What asking for a page, by a form with `value` if there is one, comes to: its text, or "Fault: " and its
/// sentence.
std::string ask(const std::string& address, const HttpClient::Limits& limits = {},
                const std::string& value = "") {
    const auto noted = std::make_shared<Noted>();
    try {
        const HttpClient client(limits, noted);
        return value.empty() ? client.get(address) : client.post(address, {{"a", value}});
    } catch (const basics::Fault& fault) {
        EXPECT_TRUE(noted->text.empty() || noted->text.ends_with(fault.what())) << noted->text;
        EXPECT_EQ(noted->text.find("web 127.0.0.1 status 500, ") == 0,
                  std::string(fault.what()).find("(500)") != std::string::npos);
        return std::string("Fault: ") + fault.what();
    }
}

TEST(CostComponent, SendsItsFieldsInTheAgreedOrder) {
    CannedServer server(CannedServer::ok("[START]1/*/[END]"));
    clsOrderCostText component;
    EXPECT_EQ(
        component.ChubangJunCost({1, server.address("/cost.asp?site=1"), "17", "2", "04524", "서울 & 중구=1",
                                  "3", "당귀/$CD$/3.5", "20", "12000", "5", "001", "120", "40", "1"}),
        "[START]1/*/[END]");
    std::string asked = server.asked();
    EXPECT_TRUE(asked.starts_with("POST /cost.asp?site=1 HTTP/1.1\r\n")) << asked;
    EXPECT_EQ(
        asked.substr(asked.find("\r\n\r\n") + 4),
        "Kind=1&DTR_PK=17&BesongMethod=2&BesongZip=04524&BesongJuso=%EC%84%9C%EC%9A%B8%20%26%20%EC%A4%91%EA%B5%AC"
        "%3D1&JobList_PK=3&DrugText=%EB%8B%B9%EA%B7%80%2F%24CD%24%2F3.5&Chubsu=20&DrugPrice=12000&TJML_PK=5"
        "&TJAL_Slot=001&PouchAmount=120&PouchTotal=40&PayMethod=1");
    component.ChubangJunCostUpdate(
        {1, server.address(), "17", "99", "", "", "", std::string("a\0\xff+%", 5), "4", "", "", "3"});
    asked = server.asked();
    EXPECT_EQ(
        asked.substr(asked.find("\r\n\r\n") + 4),
        "Kind=1&DTR_PK=17&CBJ_PK=99&Value5=&Value6=&Value7=&Value8=a%EF%BF%BD%2B%25&BesongMethod=4&BesongZip="
        "&BesongJuso=&PayMethod=3");
}

TEST(HttpClient, WhatThePageDoesAndWhatTheDoctorReads) {
    const std::string server = "Fault: 웹페이지 서버(127.0.0.1)", whole(1000, 'x');
    const std::string broken = server + "와의 연결이 응답 도중에 끊어졌습니다.",
                      late = server + "가 1초 안에 응답하지 않았습니다.", head = "HTTP/1.1 200 OK\r\n",
                      packed = head + "Content-Encoding: gzip\r\nConnection: close\r\n\r\n";
    const std::vector<std::pair<CannedServer::Reply, std::string>> cases{
        {{head + "Transfer-Encoding: chunked\r\n\r\n4\r\n[STA\r\n3\r\nRT]\r\n0\r\n\r\n"}, "[START]"},
        {{"HTTP/1.0 200 OK\r\n\r\nends by closing"}, "ends by closing"},
        {{CannedServer::ok(whole)}, whole},
        {{CannedServer::ok(whole + "x")}, server + "의 응답이 너무 커서 받지 않았습니다."},
        {{packed +
          std::string(
              "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\x8b\x0e\x0e\x71\x0c\x0a\x89\x05\x00\xfe\x01\xaa\x7c\x07\x00\x00\x00",
              27)},
         "[START]"},
        {{packed +
          std::string(
              "\x1f\x8b\x08\x00\x00\x00\x00\x00\x02\x03\xab\xa8\x18\x05\xa3\x60\x14\x0c\x7b\x00\x00\x07\x10\x8e\xc5\xe9\x03\x00\x00",
              29)},
         server + "의 응답이 너무 커서 받지 않았습니다."},
        {{"HTTP/1.1 500 Oops\r\nContent-Length: 7\r\n\r\n[START]"},
         server + "가 오류 상태(500)로 응답했습니다."},
        {{""}, broken},
        {{head + "Content-Length: 50\r\n\r\n[START]1/*/"}, broken},
        {{"SSH-2.0-OpenSSH_9.2\r\n"}, server + "의 응답을 읽지 못했습니다."},
        {{"", true}, late},
        {{head + "Content-Length: 9\r\n\r\n[START]", true}, late},
    };
    for (const auto& [reply, result] : cases) {
        CannedServer page([&](const std::string&) { return reply; });
        EXPECT_EQ(ask(page.address(), {.total = 400ms, .bytes = 1000, .authorities = {}}, "b"), result)
            << reply.bytes;
    }
    CannedServer slamsTheDoor(CannedServer::Handler{});
    EXPECT_EQ(ask(slamsTheDoor.address(), {}, std::string(3'000'000, 'x')), broken);
}

TEST(HttpClient, RedirectsKeepTheFormAndEndSomewhere) {
    int hops = 0;
    std::string status;
    CannedServer page([&](const std::string&) {
        return CannedServer::Reply{hops-- > 0 ? CannedServer::redirect("/next", status)
                                              : CannedServer::ok("there")};
    });
    for (const char* each : {"301 Moved", "302 Found", "303 See Other", "307 Temporary", "308 Permanent"}) {
        hops = 5;
        status = each;
        EXPECT_EQ(ask(page.address(), {}, "1"), "there") << each;
        EXPECT_TRUE(page.asked().starts_with("POST /next ")) << each;
        EXPECT_TRUE(page.asked().ends_with("\r\n\r\na=1")) << each;
    }
    hops = 6;
    EXPECT_EQ(ask(page.address(), {}, "1"), "Fault: 웹페이지 주소가 5번 넘게 옮겨져 더 따라가지 않았습니다.");
    CannedServer strange(CannedServer::redirect("file:///etc/passwd"));
    EXPECT_EQ(ask(strange.address()),
              "Fault: 웹페이지 서버(127.0.0.1)가 쓸 수 없는 주소로 옮기려 하여 따라가지 않았습니다.");
}

/// Web pages over TLS for four connections, with a certificate of their own making, by the machine's openssl
/// program; its first lines come out of the pipe.
FILE* serveSecurely(const std::filesystem::path& folder) {
    std::ofstream(folder / "page") << CannedServer::ok("safe");
    std::ofstream(folder / "away") << CannedServer::redirect("http://127.0.0.1:1/");
    if (!testing::makeCertificate(folder)) return popen("true", "r");
    const std::string command =
        "cd '" + folder.string() +
        "' && timeout 20 openssl s_server -accept 127.0.0.1:0 -naccept 4 -cert cert -key key -HTTP 2>&1";
    return popen(command.c_str(), "r");
}

TEST(HttpClient, OnlyACertificateThatChecksIsTrustedAndTlsIsNeverLeft) {
    const testing::TestFolder machine;
    const std::filesystem::path& folder = machine.path;
    FILE* server = serveSecurely(folder);
    std::string port, line(256, '\0');
    while (port.empty() && fgets(line.data(), 256, server) != nullptr) {
        if (line.starts_with("ACCEPT ")) port = std::to_string(std::stoi(line.substr(line.find(':') + 1)));
    }
    const HttpClient::Limits trusting{.authorities = (folder / "cert").string()};
    const std::string unknown = "의 보안 인증서를 확인할 수 없어 연결하지 않았습니다.";
    if (!port.empty()) {
        EXPECT_EQ(ask("https://localhost:" + port + "/page", trusting), "safe");
        EXPECT_EQ(ask("https://localhost:" + port + "/page"), "Fault: 웹페이지 서버(localhost)" + unknown);
        EXPECT_EQ(ask("https://127.0.0.1:" + port + "/page", trusting),
                  "Fault: 웹페이지 서버(127.0.0.1)" + unknown);
        EXPECT_EQ(
            ask("https://localhost:" + port + "/away", trusting),
            "Fault: 웹페이지 서버(localhost)가 보안 연결(https)에서 보안이 없는 주소(http)로 옮기려 하여 따라가지 않았습니다.");
    }
    pclose(server);
    if (port.empty()) GTEST_SKIP() << "no openssl program here";
}

/// What fetching for a window comes to: "type address body", or "Fault".
std::string fetched(const std::string& address, HttpClient::Limits limits = pageLimits()) {
    try {
        const screen::WebContent content = fetchWebContent(HttpClient(std::move(limits)), address, {});
        return content.type + " " + content.address + " " + content.body;
    } catch (const basics::Fault&) {
        return "Fault";
    }
}

TEST(WebPage, BoundsOfWhatAWindowShows) {
    const std::string head = "HTTP/1.1 200 OK\r\nContent-Type: image/PNG; q=1\r\n";
    const std::size_t most = std::size_t{5} * 1024 * 1024;
    CannedServer server([&](const std::string& asked) -> CannedServer::Reply {
        if (asked.starts_with("GET /big")) return {head + "\r\n" + std::string(most, 'x')};
        if (asked.starts_with("GET /more")) return {head + "\r\n" + std::string(most + 1, 'x')};
        if (asked.starts_with("GET /huge")) return {head + "Content-Length: 104857600\r\n\r\nxx", true};
        if (asked.starts_with("GET /file")) return {CannedServer::redirect("file:///etc/hostname")};
        if (asked.starts_with("GET /picture")) return {head + "Content-Length: 2\r\n\r\n\xb4\xe7"};
        return {CannedServer::ok("page")};
    });
    EXPECT_EQ(fetched(server.address("/picture")), "image/png " + server.address("/picture") + " \xb4\xe7");
    EXPECT_TRUE(fetched(server.address("/big")).ends_with(std::string(most, 'x')));
    const std::string a = std::string(10'000, 'a');
    const std::vector<std::pair<std::string, std::string>> addresses{
        {server.address("/a b"), "text/html " + server.address("/a%20b") + " page"},
        {server.address("/" + a), "text/html " + server.address("/" + a) + " page"},
        {" http:// " + server.address("/pasted").substr(7) + "\r\n",
         "text/html " + server.address("/pasted") + " page"},
        {server.address("/file"), "Fault"},
        {server.address("/more"), "Fault"},
        {server.address("/place#가 나"), "text/html " + server.address("/place") + " page"},
        {server.address("/a\tb"), "Fault"},
        {"http://", "Fault"},
        {"http://" + a + "/", "Fault"},
        {"http://file:///etc/hostname", "Fault"},
        {"file:///etc/hostname", "Fault"},
        {"ftp://127.0.0.1/", "Fault"},
        {"javascript:alert(1)", "Fault"},
    };
    for (const auto& [address, outcome] : addresses)
        EXPECT_EQ(fetched(address), outcome) << address.substr(0, 80);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(fetched(server.address("/huge")), "Fault") << "said to be too big before it comes";
    EXPECT_LT(std::chrono::steady_clock::now() - start, 5s);
}

TEST(WebPage, EndsSoonWhenItIsStopped) {
    const std::vector<CannedServer::Reply> replies{
        {"", true}, {"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\npage", true}};
    for (const auto& reply : replies) {
        CannedServer server([&](const std::string&) { return reply; });
        std::jthread loading([&](const std::stop_token& stop) {
            EXPECT_THROW(fetchWebContent(HttpClient(pageLimits()), server.address(), stop), basics::Fault);
        });
        std::this_thread::sleep_for(100ms);
        const auto asked = std::chrono::steady_clock::now();
        loading.request_stop();
        loading.join();
        EXPECT_LT(std::chrono::steady_clock::now() - asked, 500ms);
    }
    std::stop_source before;
    before.request_stop();
    EXPECT_THROW(fetchWebContent(HttpClient(), "http://127.0.0.1:1/", before.get_token()), basics::Fault);
}

TEST(PostalPage, AsksWithItsQueryAndReadsTheHits) {
    CannedServer page(CannedServer::ok("04524\t서울 중구\r a line without a tab\n\n 06236 \t 서울\t강남 \n"));
    const std::vector<std::pair<std::string, std::string>> addresses{
        {"/zip?a=1&#top", "/zip?a=1&"},
        {"/zip#top?x", "/zip?"},
        {"/우편 번호", "/%ec%9a%b0%ed%8e%b8%20%eb%b2%88%ed%98%b8?"},
    };
    for (const auto& [path, target] : addresses) {
        const auto hits = findPostalCodes(HttpClient(), " " + page.address(path), "서울 &#1");
        const std::string line = "GET " + target + "find=%EC%84%9C%EC%9A%B8%20%26%231 HTTP/1.1\r\n";
        EXPECT_TRUE(page.asked().starts_with(line)) << page.asked();
        ASSERT_EQ(hits.size(), 2U);
        EXPECT_EQ(hits[0].zip + "|" + hits[0].address, "04524|서울 중구");
        EXPECT_EQ(hits[1].zip + "|" + hits[1].address, "06236|서울 강남");
    }
    EXPECT_THROW(findPostalCodes(HttpClient(), " ", "서울"), basics::Fault);
    for (const char* text : {"04524\t서울 \xff구\r", "<html>\t<body>Service</body></html>", "\t서울 중구\n",
                             "04524 서울 중구"}) {
        CannedServer nonsense(CannedServer::ok(text));
        EXPECT_THROW(findPostalCodes(HttpClient(), nonsense.address(), "서울"), basics::Fault) << text;
    }
}

}  // namespace
}  // namespace zelvo::http
