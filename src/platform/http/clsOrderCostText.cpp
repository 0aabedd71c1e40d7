#include "platform/http/clsOrderCostText.h"

#include "basics/Numbers.h"

namespace zelvo::http {

std::string clsOrderCostText::ask(const std::string& url, const FormFields& fields) const {
    std::string answer;
    waiting_([&](const std::stop_token& stop) { answer = client_.post(url, fields, stop); });
    return answer;
}

std::string clsOrderCostText::ChubangJunCost(const CostRequest& request) {
    return ask(request.url, {{"Kind", basics::decimalText(std::int64_t{request.kind})},
                             {"DTR_PK", request.doctorKey},
                             {"BesongMethod", request.besongMethod},
                             {"BesongZip", request.besongZip},
                             {"BesongJuso", request.besongJuso},
                             {"JobList_PK", request.jobListKey},
                             {"DrugText", request.drugText},
                             {"Chubsu", request.chubsu},
                             {"DrugPrice", request.drugPrice},
                             {"TJML_PK", request.tjmlKey},
                             {"TJAL_Slot", request.tjalSlot},
                             {"PouchAmount", request.pouchAmount},
                             {"PouchTotal", request.pouchTotal},
                             {"PayMethod", request.payMethod}});
}

std::string clsOrderCostText::ChubangJunCostUpdate(const UpdateRequest& request) {
    return ask(request.url, {{"Kind", basics::decimalText(std::int64_t{request.kind})},
                             {"DTR_PK", request.doctorKey},
                             {"CBJ_PK", request.orderKey},
                             {"Value5", request.value5},
                             {"Value6", request.value6},
                             {"Value7", request.value7},
                             {"Value8", request.value8},
                             {"BesongMethod", request.besongMethod},
                             {"BesongZip", request.besongZip},
                             {"BesongJuso", request.besongJuso},
                             {"PayMethod", request.payMethod}});
}

}  // namespace zelvo::http
