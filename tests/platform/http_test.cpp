#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "basics/Fault.h"
#include "platform/CannedServer.h"
#include "platform/http/Charset.h"
#include "platform/http/PostalPage.h"
#include "platform/http/clsOrderCostText.h"

namespace zelvo::http {
namespace {

using namespace std::chrono_literals;
using testing::CannedServer;

HttpClient quickClient() {
    return HttpClient({.connect = 400ms, .total = 400ms, .bytes = 1000, .redirects = 5, .authorities = {}});
}

/// What a request comes to: the page's text, or "Fault: " and its sentence.
std::string outcome(const std::function<std::string()>& request) {
    try {
        return request();
    } catch (const basics::Fault& fault) {
        return std::string("Fault: ") + fault.what();
    }
}

std::string bodyOf(const std::string& request) {
    return request.substr(request.find("\r\n\r\n") + 4);
}

class Environment {
public:
    Environment(const char* name, const std::string& value) : name_(name) {
        if (const char* before = std::getenv(name)) before_ = before;
        setenv(name, value.c_str(), 1);
    }
    ~Environment() { before_ ? setenv(name_, before_->c_str(), 1) : unsetenv(name_); }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

private:
    const char* name_;
    std::optional<std::string> before_;
};

TEST(CostComponent, sendsItsFieldsInTheAgreedOrder) {
    CannedServer server(CannedServer::ok("[START]1/*/[END]"));
    clsOrderCostText component;
    EXPECT_EQ(component.ChubangJunCost({.kind = 1,
                                        .url = server.address("/cost.asp?site=1"),
                                        .doctorKey = "17",
                                        .besongMethod = "2",
                                        .besongZip = "04524",
                                        .besongJuso = "서울 & 중구=1",
                                        .jobListKey = "3",
                                        .drugText = "당귀/$CD$/3.5",
                                        .chubsu = "20",
                                        .drugPrice = "12000",
                                        .tjmlKey = "5",
                                        .tjalSlot = "001",
                                        .pouchAmount = "120",
                                        .pouchTotal = "40",
                                        .payMethod = "1"}),
              "[START]1/*/[END]");
    component.ChubangJunCostUpdate({.kind = 1,
                                    .url = server.address(),
                                    .doctorKey = "17",
                                    .orderKey = "99",
                                    .value5 = "",
                                    .value6 = "",
                                    .value7 = "",
                                    .value8 = std::string("a\0\xff+%", 5),
                                    .besongMethod = "4",
                                    .besongZip = "",
                                    .besongJuso = "",
                                    .payMethod = "3"});
    const auto requests = server.requests();
    ASSERT_EQ(requests.size(), 2U);
    EXPECT_TRUE(requests[0].starts_with("POST /cost.asp?site=1 HTTP/1.1\r\n")) << requests[0];
    EXPECT_NE(requests[0].find("\r\nContent-Type: application/x-www-form-urlencoded; charset=UTF-8\r\n"),
              std::string::npos);
    EXPECT_EQ(
        bodyOf(requests[0]),
        "Kind=1&DTR_PK=17&BesongMethod=2&BesongZip=04524&BesongJuso=%EC%84%9C%EC%9A%B8%20%26%20%EC%A4%91%EA%B5%AC"
        "%3D1&JobList_PK=3&DrugText=%EB%8B%B9%EA%B7%80%2F%24CD%24%2F3.5&Chubsu=20&DrugPrice=12000&TJML_PK=5"
        "&TJAL_Slot=001&PouchAmount=120&PouchTotal=40&PayMethod=1");
    EXPECT_EQ(
        bodyOf(requests[1]),
        "Kind=1&DTR_PK=17&CBJ_PK=99&Value5=&Value6=&Value7=&Value8=a%EF%BF%BD%2B%25&BesongMethod=4&BesongZip="
        "&BesongJuso=&PayMethod=3");
}

TEST(HttpClient, whatThePageDoesAndWhatTheDoctorReads) {
    const std::string server = "Fault: 웹페이지 서버(127.0.0.1)";
    const auto chunked =
        "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\nConnection: close\r\n\r\n4\r\n[STA\r\n3\r\nRT]\r\n0\r\n\r\n";
    struct Case {
        std::string name;
        CannedServer::Reply reply;
        std::string outcome;
    };
    const std::vector<Case> cases{
        {"empty page", {CannedServer::ok("")}, ""},
        {"chunks", {chunked}, "[START]"},
        {"no length, ends by closing", {"HTTP/1.0 200 OK\r\n\r\nwhole"}, "whole"},
        {"exactly the limit", {CannedServer::ok(std::string(1000, 'x'))}, std::string(1000, 'x')},
        {"one byte more",
         {CannedServer::ok(std::string(1001, 'x'))},
         server + "의 응답이 너무 커서 받지 않았습니다."},
        {"500",
         {"HTTP/1.1 500 Oops\r\nContent-Length: 7\r\n\r\n[START]"},
         server + "가 오류 상태(500)로 응답했습니다."},
        {"204", {"HTTP/1.1 204 No Content\r\n\r\n"}, server + "가 오류 상태(204)로 응답했습니다."},
        {"redirect to nowhere",
         {"HTTP/1.1 302 Found\r\nContent-Length: 0\r\n\r\n"},
         server + "가 오류 상태(302)로 응답했습니다."},
        {"says nothing", {""}, server + "와의 연결이 응답 도중에 끊어졌습니다."},
        {"breaks off",
         {"HTTP/1.1 200 OK\r\nContent-Length: 50\r\n\r\n[START]1/*/"},
         server + "와의 연결이 응답 도중에 끊어졌습니다."},
        {"speaks another language", {"SSH-2.0-OpenSSH_9.2\r\n"}, server + "의 응답을 읽지 못했습니다."},
        {"never answers", {"", true}, server + "가 1초 안에 응답하지 않았습니다."},
        {"hangs in the middle",
         {"HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\n[START]", true},
         server + "가 1초 안에 응답하지 않았습니다."},
    };
    for (const Case& c : cases) {
        CannedServer page([&](const std::string&) { return c.reply; });
        EXPECT_EQ(outcome([&] {
                      return quickClient().post(page.address(), {{"a", "b"}});
                  }),
                  c.outcome)
            << c.name;
    }
}

TEST(HttpClient, aServerThatSlamsTheDoorDoesNotEndTheHost) {
    CannedServer page(CannedServer::Handler{});
    const std::string text(3'000'000, 'x');
    EXPECT_EQ(outcome([&] {
                  return HttpClient().post(page.address(), {{"a", text}});
              }),
              "Fault: 웹페이지 서버(127.0.0.1)와의 연결이 응답 도중에 끊어졌습니다.");
}

TEST(HttpClient, addressesThatAreNotAsked) {
    const std::string closed = "127.0.0.1:" + std::to_string(CannedServer::closedPort());
    const std::vector<std::pair<std::string, std::string>> cases{
        {"", "웹페이지 주소가 비어 있습니다."},
        {"   ", "웹페이지 주소가 비어 있습니다."},
        {"pharmacy.example/cost.asp", "웹페이지 주소가 http나 https로 시작하지 않습니다."},
        {"file:///etc/passwd", "웹페이지 주소가 http나 https로 시작하지 않습니다."},
        {"ftp://127.0.0.1/", "웹페이지 주소가 http나 https로 시작하지 않습니다."},
        {std::string("http://127.0.0.1/\0x", 19), "웹페이지 주소에 쓸 수 없는 문자가 들어 있습니다."},
        {"http://127.0.0.1/\r\nHost: x", "웹페이지 주소에 쓸 수 없는 문자가 들어 있습니다."},
        {"http://", "웹페이지 주소가 올바르지 않습니다."},
        {"http://127.0.0.1:99999/", "웹페이지 주소가 올바르지 않습니다."},
        {"http://" + closed, "웹페이지 서버(127.0.0.1)에 연결하지 못했습니다."},
    };
    for (const auto& [address, sentence] : cases) {
        EXPECT_EQ(outcome([&] { return quickClient().get(address); }), "Fault: " + sentence) << address;
    }
}

TEST(HttpClient, redirectsKeepTheFormAndEndSomewhere) {
    int hops = 0;
    std::string status;
    CannedServer page([&](const std::string&) {
        return CannedServer::Reply{hops-- > 0 ? CannedServer::redirect("/next", status)
                                              : CannedServer::ok("there")};
    });
    for (const char* each : {"301 Moved", "302 Found", "303 See Other", "307 Temporary", "308 Permanent"}) {
        hops = 1;
        status = each;
        EXPECT_EQ(outcome([&] { return HttpClient().post(page.address(), {{"a", "1"}}); }), "there") << each;
        EXPECT_TRUE(page.requests().back().starts_with("POST /next ")) << each;
        EXPECT_EQ(bodyOf(page.requests().back()), "a=1") << each;
    }
    hops = 5;
    EXPECT_EQ(outcome([&] { return HttpClient().post(page.address(), {}); }), "there");
    hops = 6;
    EXPECT_EQ(outcome([&] { return HttpClient().post(page.address(), {}); }),
              "Fault: 웹페이지 주소가 5번 넘게 옮겨져 더 따라가지 않았습니다.");
    for (const char* target : {"file:///etc/passwd", "ftp://127.0.0.1/x", "gopher://127.0.0.1/"}) {
        CannedServer strange(CannedServer::redirect(target));
        EXPECT_EQ(outcome([&] { return HttpClient().get(strange.address()); }),
                  "Fault: 웹페이지 서버(127.0.0.1)가 쓸 수 없는 주소로 옮기려 하여 따라가지 않았습니다.")
            << target;
    }
}

TEST(HttpClient, theProxyOfTheEnvironmentIsAskedButNeverForThisMachine) {
    CannedServer proxy(CannedServer::ok("proxy"));
    CannedServer page(CannedServer::ok("page"));
    const Environment all("http_proxy", proxy.address());
    for (const char* direct : {"", "other.example", "*"}) {
        const Environment none("no_proxy", direct);
        const std::string port = std::to_string(page.port());
        EXPECT_EQ(outcome([&] { return HttpClient().get("http://127.0.0.1:" + port); }), "page") << direct;
        EXPECT_EQ(outcome([&] { return HttpClient().get("http://localhost:" + port); }), "page") << direct;
    }
    const Environment none("no_proxy", "other.example");
    EXPECT_EQ(outcome([&] { return HttpClient().get("http://pharmacy.invalid/"); }), "proxy");
    const Environment direct("no_proxy", "pharmacy.invalid");
    EXPECT_EQ(outcome([&] { return HttpClient().get("http://pharmacy.invalid/"); }),
              "Fault: 웹페이지 서버(pharmacy.invalid)의 주소를 찾지 못했습니다.");
}

/// A web server that speaks TLS for one connection, with a certificate of its own making, by the machine's
/// openssl program.
class SecureServer {
public:
    explicit SecureServer(const std::string& response) {
        std::string name = (std::filesystem::temp_directory_path() / "zelvo-tls-XXXXXX").string();
        folder_ = mkdtemp(name.data());
        std::ofstream(folder_ / "page") << response;
        const std::string in = "cd '" + folder_.string() + "' && ";
        const auto* key =
            "openssl req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -keyout key -out cert -days 2 -subj /CN=localhost "
            "-addext subjectAltName=DNS:localhost >log 2>&1";
        if (std::system((in + key).c_str()) != 0) return;
        const auto* serve =
            "timeout 20 openssl s_server -accept 127.0.0.1:0 -naccept 1 -cert cert -key key -HTTP 2>&1";
        pipe_ = popen((in + serve).c_str(), "r");
        std::array<char, 256> line{};
        while (pipe_ != nullptr && fgets(line.data(), line.size(), pipe_) != nullptr) {
            const std::string text = line.data();
            if (!text.starts_with("ACCEPT ")) continue;
            port_ = std::to_string(std::stoi(text.substr(text.rfind(':') + 1)));
            return;
        }
    }
    ~SecureServer() {
        if (pipe_ != nullptr) pclose(pipe_);
        std::filesystem::remove_all(folder_);
    }
    SecureServer(const SecureServer&) = delete;
    SecureServer& operator=(const SecureServer&) = delete;

    bool runs() const { return !port_.empty(); }
    std::string address(const std::string& host) const { return "https://" + host + ":" + port_ + "/page"; }
    HttpClient trusting() const { return HttpClient({.authorities = (folder_ / "cert").string()}); }

private:
    std::filesystem::path folder_;
    FILE* pipe_ = nullptr;
    std::string port_;
};

TEST(HttpClient, onlyACertificateThatChecksIsTrustedAndTlsIsNeverLeft) {
    struct Case {
        std::string name, host, response, outcome;
        bool trusted;
    };
    const std::vector<Case> cases{
        {"trusted", "localhost", CannedServer::ok("safe"), "safe", true},
        {"unknown authority", "localhost", CannedServer::ok("safe"),
         "Fault: 웹페이지 서버(localhost)의 보안 인증서를 확인할 수 없어 연결하지 않았습니다.", false},
        {"another host's", "127.0.0.1", CannedServer::ok("safe"),
         "Fault: 웹페이지 서버(127.0.0.1)의 보안 인증서를 확인할 수 없어 연결하지 않았습니다.", true},
        {"redirect out of TLS", "localhost", CannedServer::redirect("http://127.0.0.1:1/"),
         "Fault: 웹페이지 서버(localhost)가 보안 연결(https)에서 보안이 없는 주소(http)로 옮기려 하여 따라가지 않았습니다.",
         true},
    };
    for (const Case& c : cases) {
        const SecureServer server(c.response);
        if (!server.runs()) GTEST_SKIP() << "no openssl program here";
        const HttpClient client = c.trusted ? server.trusting() : HttpClient();
        EXPECT_EQ(outcome([&] { return client.get(server.address(c.host)); }), c.outcome) << c.name;
    }
    CannedServer silent([](const std::string&) { return CannedServer::Reply{"", true}; });
    HttpClient hurried({.connect = 200ms, .authorities = {}});
    EXPECT_EQ(outcome([&] { return hurried.get("https://127.0.0.1:" + std::to_string(silent.port())); }),
              "Fault: 웹페이지 서버(127.0.0.1)에 1초 안에 연결되지 않았습니다.");
}

TEST(Charset, pagesAreReadByTheCharsetThatTheyName) {
    struct Case {
        std::string contentType, bytes, text;
    };
    const std::vector<Case> cases{
        {"", "당귀", "당귀"},
        {"text/html", "\xb4\xe7", "\uFFFD\uFFFD"},
        {"text/html; charset=utf-8", "\xef\xbb\xbf당귀", "당귀"},
        {"text/html; charset=EUC-KR", "\xb4\xe7\xb1\xcd", "당귀"},
        {"text/html; x=\"1\" ; Charset = \"ks_c_5601-1987\"", "\xb4\xe7\xb1\xcd", "당귀"},
        {"text/html;charset=euc-kr", "\x8c\x63\xb9\xe6", "똠방"},
        {"text/html; charset=windows-949", "a\xff\xb4\xe7", "a\uFFFD당"},
        {"text/html; charset=euc-kr", "a\xb4", "a\uFFFD"},
        {"text/html; charset=iso-8859-1", "caf\xe9", "café"},
        {"text/html; charset=no-such-thing", "당귀\xff", "당귀\uFFFD"},
        {"text/html; charset=cp949//IGNORE", "\xff당", "\uFFFD당"},
        {"text/html; charset=utf-16le", std::string("a\0\0\0b\0", 6), "ab"},
    };
    for (const Case& c : cases) EXPECT_EQ(decodePage(c.bytes, c.contentType), c.text) << c.contentType;
    EXPECT_EQ(decodePage(std::string(9001, '\xff'), "x; charset=cp949").size(), 9001U * 3);
}

TEST(PostalPage, asksWithItsQueryAndReadsTheHits) {
    CannedServer page(CannedServer::ok(
        "04524\t서울 중구 세종대로 110\r\n a line without a tab\n\n 06236 \t 서울\t강남 \n"));
    const std::vector<std::pair<std::string, std::string>> addresses{
        {"/zip", "/zip?find=%EC%84%9C%EC%9A%B8%20%26%231"},
        {"/zip?", "/zip?find=%EC%84%9C%EC%9A%B8%20%26%231"},
        {"/zip?a=1", "/zip?a=1&find=%EC%84%9C%EC%9A%B8%20%26%231"},
        {"/zip?a=1&#top", "/zip?a=1&find=%EC%84%9C%EC%9A%B8%20%26%231"},
        {"/zip#top?x", "/zip?find=%EC%84%9C%EC%9A%B8%20%26%231"},
        {"/우편 번호", "/%ec%9a%b0%ed%8e%b8%20%eb%b2%88%ed%98%b8?find=%EC%84%9C%EC%9A%B8%20%26%231"},
    };
    for (const auto& [path, target] : addresses) {
        const auto hits = findPostalCodes(HttpClient(), " " + page.address(path), "서울 &#1");
        EXPECT_TRUE(page.requests().back().starts_with("GET " + target + " HTTP/1.1\r\n"))
            << page.requests().back();
        ASSERT_EQ(hits.size(), 2U);
        EXPECT_EQ(hits[0].zip + "|" + hits[0].address, "04524|서울 중구 세종대로 110");
        EXPECT_EQ(hits[1].zip + "|" + hits[1].address, "06236|서울\t강남");
    }
}

}  // namespace
}  // namespace zelvo::http
