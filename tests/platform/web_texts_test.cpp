#include <gtest/gtest.h>

#include "basics/Fault.h"
#include "platform/http/Charset.h"
#include "platform/http/HttpClient.h"

namespace zelvo::http {
namespace {

TEST(HttpClient, AddressesThatAreNotAsked) {
    const std::string noHttp = "웹페이지 주소가 http나 https로 시작하지 않습니다.";
    const std::string characters = "웹페이지 주소에 쓸 수 없는 문자가 들어 있습니다.";
    const std::vector<std::pair<std::string, std::string>> cases{
        {"   ", "웹페이지 주소가 비어 있습니다."},
        {"pharmacy.example/cost.asp", noHttp},
        {std::string("http://127.0.0.1/\0x", 19), characters},
        {"http://127.0.0.1/\r\nHost: x", characters},
        {"http://127.0.0.1:99999/", "웹페이지 주소가 올바르지 않습니다."},
        {"http://127.0.0.1:1", "웹페이지 서버(127.0.0.1)에 연결하지 못했습니다."},
        {"http://한약국.localhost:1", "웹페이지 서버(한약국.localhost)에 연결하지 못했습니다."},
    };
    for (const auto& [address, sentence] : cases) {
        try {
            HttpClient().get(address);
            ADD_FAILURE() << address;
        } catch (const basics::Fault& fault) {
            EXPECT_EQ(fault.what(), sentence) << address;
        }
    }
}

TEST(Charset, PagesAreReadByTheCharsetThatTheyName) {
    const std::string bytes = "\xb4\xe7\xb1\xcd";
    struct Case {
        std::string contentType, bytes, text;
    };
    const std::vector<Case> cases{
        {"text/html; x=\"1\" ; Charset = \"ks_c_5601-1987\"", bytes, "당귀"},
        {"text/html;charset=euc-kr", "\x8c\x63\xb9\xe6", "똠방"},
        {"text/html; charset=windows-949", "a\xff\xb4\xe7\xb4", "a\uFFFD당\uFFFD"},
        {"text/html; charset=cp949", "\xb4\xe7\xa2\xe8", "당\uFFFD"},
        {"text/html; charset=uhc", "\xa2\xe8\xb4\xe7", "\uFFFD당"},
        {"text/html; charset=windows-1258", "a\xe2", "a\u00E2"},
        {"text/html; charset=no-such-thing", "당귀\xff", "당귀\uFFFD"},
        {"text/html; charset=cp949//IGNORE", "\xff당", "\uFFFD당"},
        {"text/html; charset=utf-16le", std::string("a\0\0\0b\0", 6), "a\uFFFDb"},
    };
    for (const Case& c : cases) EXPECT_EQ(decodePage(c.bytes, c.contentType), c.text) << c.contentType;
    // A page for people may name its charset itself.
    const std::vector<Case> pages{
        {"text/html", "<META HTTP-EQUIV=Content-Type content='text/html; charset=EUC-KR'>" + bytes, "당귀"},
        {"text/html", "<meta name=charset-hint><meta charset = \"ks_c_5601-1987\" />" + bytes, "당귀"},
        {"text/html; charset=euc-kr", "<meta charset=utf-8>" + bytes, "당귀"},
        {"text/html", "<meta charset=utf-16>당귀", "당귀"},
        {"text/html", "\xEF\xBB\xBF<meta charset=euc-kr>당귀", "당귀"},
        {"text/html", "<title>charset=euc-kr</title>당귀", "당귀"},
        {"text/html", "says nothing" + bytes, "당귀"},
        {"", "<meta" + bytes, "당귀"},
        {"text/html",
         std::string("\xff\xfe"
                     "a\0\xf9\xb2",
                     6),
         "a당"},
    };
    for (const Case& c : pages) EXPECT_TRUE(decodeHtml(c.bytes, c.contentType).ends_with(c.text)) << c.bytes;
}

}  // namespace
}  // namespace zelvo::http
