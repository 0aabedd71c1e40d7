#include "input/TabOrder.h"

namespace zelvo::input {

const std::vector<std::string>& tabOrder() {
    static const std::vector<std::string> order = {
        // Notices.
        "ssrLogIN", "tdbGongJi", "rtxGongJi", "wbrGongJi", "sscExplorer",
        // A new order: its type and herbs,
        "tdbJobList", "ssrYakGukDrug", "sscCBJRead", "tdbDGL", "sscDrugDelete", "sscDrugReset",
        "sscMyChubangReg", "txtChubsu", "txtDrugPrice",
        // decoction,
        "tdbTJML", "tdbTJAL", "txtDayTuyak", "txtTuyakilsu", "txtPouchTotal", "txtPouchAmount",
        // patient and delivery,
        "txtPatientName", "txtPatientJumin", "ssoSex(0)", "ssoSex(1)", "txtPatientAge", "txtPatientCell",
        "txtPatientTel", "txtPatientEmail", "txtBesongZip", "ssrZipCode(0)", "txtBesongJuso", "txtBesongMsg",
        "cboBesongMethod", "chkBesongDate", "dtpBesongDate", "sscBesongReset",
        // sender,
        "txtHospitalName", "txtDoctor", "txtDoctorCell", "txtHospitalTel", "txtBalsongZip", "ssrZipCode(1)",
        "txtBalsongJuso",
        // sheet and message,
        "rtxEatGuide", "txtEatGuideHosName", "txtEatGuideCall", "cmdEatGuide", "cmdEatGuideReg", "txtCBJmsg",
        // price and send.
        "cboPaymentMethod", "ssrCostConfirm", "tdbCostConfirm", "ssrCBJSend",
        // The search of sent orders.
        "sscCBJsearchALL", "dtpCBJsearch(0)", "dtpCBJsearch(1)", "sscToday", "sscCBJsearchDate",
        "txtCBJsearchDTR", "sscCBJsearchDTR", "txtCBJsearchPatient", "sscCBJsearchPatient", "cboCBJstate",
        "sscCBJsearchState", "cboCBJBesong", "sscCBJsearchBesong", "cboCBJPayMethod", "sscCBJsearchPayment",
        "cboCBJisPaid", "sscCBJsearchIsPay", "sscCBJcanceled", "tdbCBJ",
        // The order in view: its state and what can be done with it,
        "txtCBJmPayMethod", "txtCBJmIsPaid", "sschkCBJmUpdate", "ssrCBJmUpdate", "ssrCBJmCancel",
        "ssrCBJreuse",
        // patient and delivery,
        "txtCBJmPatientName", "txtCBJmJumin", "ssoCBJmSex(0)", "ssoCBJmSex(1)", "txtCBJmAge", "txtCBJmPaCell",
        "txtCBJmPaTel", "txtCBJmPaEmail", "txtCBJmBeZip", "ssrZipCode(2)", "txtCBJmBeJuso",
        "txtCBJmBesongMsg", "cboCBJmBesongMethod", "txtCBJmBesongDate", "chkCBJmBesongDate",
        "dtpCBJmBesongDate",
        // sender,
        "txtCBJmHosPital", "txtCBJmDTRName", "txtCBJmDTRCell", "txtCBJmDTRTel", "txtCBJmBalZip",
        "ssrZipCode(3)", "txtCBJmBalJuso",
        // type, herbs, decoction, costs,
        "txtCBJmJobList", "sscCBJmJobListDetail", "tdbCBJmDGL", "txtCBJmChubsu", "txtCBJmDrugCost",
        "txtCBJmTJML", "sscCBJmTJMLDetail", "lstCBJmTJAL", "sscCBJmTJALDetail", "txtCBJmDayTuyak",
        "txtCBJmTuyakilsu", "txtCBJmPouchTotal", "txtCBJmPouchAmount", "tdbCBJmCost",
        // message and sheet.
        "txtCBJmCBMsg", "rtxCBJmEatMsg", "txtEatGuideHosName2", "txtEatGuideCall2", "cmdEatGuideUpdate",
        // The doctor's record,
        "txtDTRid", "txtDTRpass", "ssrPWDchang", "txtDTRname", "txtDTRlicense", "txtDTRcell", "txtDTRhostel",
        "txtDTREmail", "txtDTRdiscount", "txtDTRmileage", "txtDTRhosname", "txtDTRregdate", "txtDTRhoszip",
        "ssrZipCode(4)", "txtDTRaddress", "ListVpayment", "txtDTRbox", "txtDTRpouch", "txtDTRuseform",
        "txtDTRvip", "ssrDTRchang",
        // and the balance.
        "txTotalStock", "txtTotalUsedStock", "txtTotalMileage", "txtUsableStock", "ssrStockView(0)",
        "dtpStockView(0)", "dtpStockView(1)", "ssrStockView(1)", "tdbInStock", "txtGridStock", "tdbUsedStock",
        "txtGridStockUse", "tdbMileage", "txtGridMileageUse"};
    return order;
}

}  // namespace zelvo::input
