#include "input/TabOrder.h"

namespace zelvo::input {

const std::vector<std::string>& tabOrder() {
    static const std::vector<std::string> order = {
        // Notices.
        "ssrLogIN", "tdbGongJi", "rtxGongJi", "wbrGongJi", "sscExplorer",
        // A new order: its type and herbs,
        "tdbJobList", "tdbDGL", "txtChubsu", "txtDrugPrice",
        // decoction,
        "tdbTJML", "tdbTJAL", "txtDayTuyak", "txtTuyakilsu", "txtPouchTotal", "txtPouchAmount",
        // patient and delivery,
        "txtPatientName", "txtPatientJumin", "ssoSex(0)", "ssoSex(1)", "txtPatientAge", "txtPatientCell",
        "txtPatientTel", "txtPatientEmail", "txtBesongZip", "ssrZipCode(0)", "txtBesongJuso", "txtBesongMsg",
        "cboBesongMethod", "chkBesongDate", "dtpBesongDate",
        // sender,
        "txtHospitalName", "txtDoctor", "txtDoctorCell", "txtHospitalTel", "txtBalsongZip", "ssrZipCode(1)",
        "txtBalsongJuso",
        // sheet and message,
        "rtxEatGuide", "txtEatGuideHosName", "txtEatGuideCall", "txtCBJmsg",
        // price and send,
        "cboPaymentMethod", "ssrCostConfirm", "tdbCostConfirm", "ssrCBJSend",
        // and the buttons that are off this road.
        "cmdLeftOut", "ssrYakGukDrug", "sscCBJRead", "sscDrugDelete", "sscDrugReset", "sscMyChubangReg",
        "sscBesongReset", "cmdEatGuide", "cmdEatGuideReg",
        // The search of sent orders.
        "sscCBJsearchALL", "dtpCBJsearch(0)", "dtpCBJsearch(1)", "sscCBJsearchDate", "sscToday",
        "txtCBJsearchDTR", "sscCBJsearchDTR", "txtCBJsearchPatient", "sscCBJsearchPatient", "cboCBJstate",
        "sscCBJsearchState", "cboCBJBesong", "sscCBJsearchBesong", "cboCBJPayMethod", "sscCBJsearchPayment",
        "cboCBJisPaid", "sscCBJsearchIsPay", "sscCBJcanceled", "tdbCBJ",
        // The order in view: its state,
        "txtCBJmPayMethod", "txtCBJmIsPaid", "sschkCBJmUpdate",
        // patient and delivery,
        "txtCBJmPatientName", "txtCBJmJumin", "ssoCBJmSex(0)", "ssoCBJmSex(1)", "txtCBJmAge", "txtCBJmPaCell",
        "txtCBJmPaTel", "txtCBJmPaEmail", "txtCBJmBeZip", "ssrZipCode(2)", "txtCBJmBeJuso",
        "txtCBJmBesongMsg", "cboCBJmBesongMethod", "txtCBJmBesongDate", "chkCBJmBesongDate",
        "dtpCBJmBesongDate",
        // sender,
        "txtCBJmHosPital", "txtCBJmDTRName", "txtCBJmDTRCell", "txtCBJmDTRTel", "txtCBJmBalZip",
        "ssrZipCode(3)", "txtCBJmBalJuso",
        // type, herbs, decoction, costs,
        "txtCBJmJobList", "tdbCBJmDGL", "txtCBJmChubsu", "txtCBJmDrugCost", "txtCBJmTJML", "lstCBJmTJAL",
        "txtCBJmDayTuyak", "txtCBJmTuyakilsu", "txtCBJmPouchTotal", "txtCBJmPouchAmount", "tdbCBJmCost",
        // message and sheet, what is done with what was written, and what leads off.
        "txtCBJmCBMsg", "rtxCBJmEatMsg", "txtEatGuideHosName2", "txtEatGuideCall2", "ssrCBJmUpdate",
        "cmdEatGuideUpdate", "ssrCBJreuse", "ssrCBJmCancel", "sscCBJmJobListDetail", "sscCBJmTJMLDetail",
        "sscCBJmTJALDetail",
        // The doctor's record,
        "txtDTRid", "txtDTRpass", "txtDTRname", "txtDTRlicense", "txtDTRcell", "txtDTRhostel", "txtDTREmail",
        "txtDTRdiscount", "txtDTRmileage", "txtDTRhosname", "txtDTRregdate", "txtDTRhoszip", "ssrZipCode(4)",
        "txtDTRaddress", "ListVpayment", "txtDTRbox", "txtDTRpouch", "txtDTRuseform", "txtDTRvip",
        "ssrDTRchang", "ssrPWDchang",
        // and the balance.
        "txTotalStock", "txtTotalUsedStock", "txtTotalMileage", "txtUsableStock", "ssrStockView(0)",
        "dtpStockView(0)", "dtpStockView(1)", "ssrStockView(1)", "tdbInStock", "txtGridStock", "tdbUsedStock",
        "txtGridStockUse", "tdbMileage", "txtGridMileageUse"};
    return order;
}

}  // namespace zelvo::input
