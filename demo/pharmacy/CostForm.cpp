#include "pharmacy/CostForm.h"

#include <charconv>

#include "basics/Fault.h"
#include "basics/Numbers.h"
#include "basics/Text.h"
#include "basics/Utf8.h"

namespace zelvo::pharmacy {
namespace {

constexpr std::size_t herbCells = 11;
constexpr std::size_t mostSlots = 64;

std::string decode(std::string_view text) {
    std::string plain;
    plain.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned byte = 0;
        const auto* hex = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() && std::from_chars(hex, hex + 2, byte, 16).ptr == hex + 2) {
            plain += static_cast<char>(byte);
            i += 2;
        } else {
            plain += text[i] == '+' ? ' ' : text[i];
        }
    }
    return basics::cleanUtf8(plain);
}

const std::string& field(const FormFields& fields, std::string_view name) {
    const auto found = fields.find(name);
    if (found == fields.end()) throw basics::Fault("요청 항목이 빠졌습니다: " + std::string(name));
    return found->second;
}

std::string numberField(const FormFields& fields, std::string_view name) {
    const auto& text = field(fields, name);
    if (!basics::IsNumeric(text)) throw basics::Fault("요청 값이 숫자가 아닙니다: " + std::string(name));
    return text;
}

std::int32_t whole(const FormFields& fields, std::string_view name) {
    const auto value = basics::toInt32(numberField(fields, name));
    if (value < 0) throw basics::Fault("요청 값이 0보다 작습니다: " + std::string(name));
    return value;
}

double quantity(const FormFields& fields, std::string_view name) {
    const auto value = basics::toNumber(numberField(fields, name));
    if (value < 0) throw basics::Fault("요청 값이 0보다 작습니다: " + std::string(name));
    return value;
}

void expectKind(const FormFields& fields) {
    if (whole(fields, "Kind") != 1) throw basics::Fault("지원하지 않는 요청입니다.");
}

Delivery delivery(const FormFields& fields) {
    const auto code = whole(fields, "BesongMethod");
    if (code < 1 || code > 4) throw basics::Fault("배송 방식을 알 수 없습니다.");
    return static_cast<Delivery>(code);
}

Payment payment(std::int32_t code) {
    if (code < 1 || code > 3) throw basics::Fault("지불 방식을 알 수 없습니다.");
    return static_cast<Payment>(code);
}

std::vector<HerbLine> herbLines(const std::string& text) {
    std::vector<HerbLine> lines;
    if (text.empty()) return lines;
    for (const auto& row : basics::split(text, "/$RD$/")) {
        const auto cells = basics::split(row, "/$CD$/");
        if (cells.size() != herbCells) throw basics::Fault("약재정보를 읽을 수 없습니다.");
        if (!basics::IsNumeric(cells[3]) || !basics::IsNumeric(cells[6])) {
            throw basics::Fault("[" + cells[1] + "] 약재의 정보가 완전하지 않습니다.");
        }
        lines.push_back({cells[1], basics::toInt32(cells[3]), cells[5], basics::toInt32(cells[6])});
    }
    return lines;
}

std::vector<int> slots(const std::string& text) {
    if (text.size() > mostSlots) throw basics::Fault("제형변화 정보를 읽을 수 없습니다.");
    std::vector<int> chosen;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '1') chosen.push_back(static_cast<int>(i) + 1);
    }
    return chosen;
}

}  // namespace

FormFields readForm(std::string_view body) {
    FormFields fields;
    for (const auto& pair : basics::split(body, "&")) {
        const auto equals = pair.find('=');
        if (equals == std::string::npos) continue;
        fields[decode(std::string_view(pair).substr(0, equals))] =
            decode(std::string_view(pair).substr(equals + 1));
    }
    return fields;
}

CostRequest readCostRequest(const FormFields& fields) {
    expectKind(fields);
    CostRequest request;
    request.doctorKey = whole(fields, "DTR_PK");
    request.jobKey = whole(fields, "JobList_PK");
    request.herbs = herbLines(field(fields, "DrugText"));
    auto& order = request.order;
    order.delivery = delivery(fields);
    order.deliveryZip = basics::trim(field(fields, "BesongZip"));
    order.packets = whole(fields, "Chubsu");
    order.herbPrice = whole(fields, "DrugPrice");
    order.methodKey = whole(fields, "TJML_PK");
    order.addOnSlots = slots(field(fields, "TJAL_Slot"));
    order.pouchMillilitres = quantity(fields, "PouchAmount");
    order.pouches = quantity(fields, "PouchTotal");
    order.payment = payment(whole(fields, "PayMethod"));
    return request;
}

CostUpdateRequest readCostUpdateRequest(const FormFields& fields) {
    expectKind(fields);
    CostUpdateRequest request;
    request.doctorKey = whole(fields, "DTR_PK");
    request.orderKey = whole(fields, "CBJ_PK");
    request.delivery = delivery(fields);
    request.deliveryZip = basics::trim(field(fields, "BesongZip"));
    return request;
}

}  // namespace zelvo::pharmacy
