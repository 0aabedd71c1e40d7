#pragma once

#include <optional>

#include "account/BalanceView.h"
#include "composition/OrderDesk.h"
#include "data/Words.h"
#include "ordering/CostConfirmation.h"
#include "ordering/OrderDraft.h"
#include "ordering/OrderSend.h"
#include "ordering/SendGate.h"
#include "support/ChartParts.h"
#include "support/TestFolder.h"

namespace zelvo::testing {

/// The panes and flows of a new order in a small window. No host. A box while a transaction is open fails the
/// test: the pharmacy would wait for its reader.
class OrderWindow : public OrderPanes<ordering::SendGate> {
public:
    explicit OrderWindow(std::shared_ptr<OrderPharmacy> shared = std::make_shared<OrderPharmacy>(),
                         std::shared_ptr<TestFolder> sharedMachine = std::make_shared<TestFolder>())
        : OrderPanes(std::move(shared)), machine(std::move(sharedMachine)) {
        session.m_DTRPK = 1;
        line->server = "server:1";
        desktop.onBox = [this](const screen::MessageBox& box) {
            EXPECT_FALSE(line->inTransaction) << "a box inside a transaction: " << box.text;
        };
        page.standIn(desktop);
        standIn(machine, desktop);
        send.Send2Chart.add([this](const ordering::ChartRecord& record) {
            sent.push_back(record);
            if (chartFault) throw basics::Fault(*chartFault);
        });
        price.Form_Load();
        balance.Init_StockGrids();
        for (const auto method : {data::pay::deposit, data::pay::later})
            payment.cboPaymentMethod.addEntry(method);
    }

    /// A complete order: two herbs, decoction with one add-on, parcel to the patient, paid later.
    void compose(int job = 0) {
        chooseJob(job);
        options.tdbTJML.setCurrentRow(1);
        options.pressTJML(0);
        options.pressTJAL(0);
        patient.lblPatientPK.setCaption("4711");
        patient.txtPatientName.setText("김 환자");
        patient.ssoSex0.setValue(true);
        patient.txtPatientAge.setText("4 2");
        patient.txtPatientCell.setText("010-1234-5678");
        patient.txtBesongZip.setText("06000");
        patient.txtBesongJuso.setText("서울 강남구 1");
        patient.cboBesongMethod.select(1);
        sender.txtHospitalName.setText("우리 한의원");
        sender.txtDoctor.setText("이한의");
        sender.txtHospitalTel.setText("02-123-4567");
        sender.txtBalsongZip.setText("03000");
        sender.txtBalsongJuso.setText("서울 종로구 2");
        add("당귀|한약국 당귀|11|4|25.5|102|1|0||\n작약|한약국 작약|12|3.5|1,000|3,500|2|0||볶은 것");
        dose.txtChubsu.setText("20");
        dose.txtDayTuyak.setText("3");
        dose.txtTuyakilsu.setText("7");
        dose.txtPouchAmount.setText("100");
        sheet.txtCBJmsg.setText(" 잘 부탁합니다 ");
        sheet.rtxEatGuide.setText("식후 30분");
        payment.cboPaymentMethod.select(1);
        page.answer = CostPage::priced(72040, 720);
    }
    void chooseJob(int job) {
        options.tdbJobList.setCurrentRow(job);
        options.pressJobList(0);
    }
    /// The server tells how long some of its text columns are.
    void knowLengths() const {
        line->catalogue = true;
        line->execute("ATTACH ':memory:' AS INFORMATION_SCHEMA");
        line->execute(
            "CREATE TABLE INFORMATION_SCHEMA.COLUMNS AS SELECT 't_ChubangJun' TABLE_NAME, 'PATIENT_NAME' COLUMN_NAME,"
            " 'varchar' DATA_TYPE, 'cp949' CHARACTER_SET_NAME, 8 CHARACTER_MAXIMUM_LENGTH UNION ALL VALUES"
            " ('t_ChubangJun', 'Patient_Email', 'varchar', 'UTF8', 8), ('t_CBJDetail', 'DET_Note', 'nvarchar', 'UNICODE', 5),"
            " ('t_EatGuide', 'HospName', 'char', 'iso_1', 2), ('t_ChubangJun', 'CBJ_Msg', 'varchar', 'cp949', -1)");
    }
    void priceAndSend() {
        user.press("ssrCostConfirm");
        user.press("ssrCBJSend");
    }

    CostPage page;
    /// What stands in the folder of logs and marks.
    std::map<std::string, std::string> logs() const { return machine->files("zelvo"); }
    /// Nothing can be written there any more.
    void spoilLogFolder() const { std::ofstream(machine->path / "zelvo").flush(); }

    std::shared_ptr<TestFolder> machine;
    std::optional<std::string> chartFault;
    std::vector<ordering::ChartRecord> sent;
    account::BalanceView balance{form, {}, session};
    ordering::OrderDraft draft{session, frames, herbs,   dose,  options,
                               patient, sender, payment, sheet, leftOut};
    ordering::CostConfirmation price{form, draft, gate};
    ordering::OrderSend send{form, draft, gate, price, balance};
};

}  // namespace zelvo::testing
