#pragma once

#include <map>
#include <optional>

#include "account/BalanceView.h"
#include "data/Words.h"
#include "ordering/CostConfirmation.h"
#include "ordering/OrderDraft.h"
#include "ordering/OrderSend.h"
#include "ordering/SendGate.h"
#include "platform/console/UserActions.h"
#include "support/TestDatabase.h"
#include "support/TestDesktop.h"

namespace zelvo::testing {

/// A desktop on which a box while a transaction is open fails the test: the pharmacy would wait for its
/// reader.
class OrderDesktop : public TestDesktop {
public:
    FaultyConnection* line = nullptr;
    screen::Answer messageBox(const screen::MessageBox& box) override {
        if (line && line->inTransaction) ADD_FAILURE() << "a box inside a transaction: " << box.text;
        return TestDesktop::messageBox(box);
    }
};

/// A cost page that answers what it is told, and remembers what it was asked.
struct CostPage {
    std::string answer;
    std::optional<std::string> fault;
    std::function<void()> whileAsked = [] {};
    std::vector<screen::OrderCostText::CostRequest> requests;

    /// A good answer: total, ten amounts, mileage; each note is "note N" and a second line.
    static std::string priced(std::int64_t total, std::int64_t mileage = 0) {
        std::string text = "<html>[START]1ok/*/" + std::to_string(total) + "&note 0";
        for (int line = 1; line <= 10; ++line) {
            text += "/*/" + std::to_string(line == 2 ? total : 0) + "&amp;note " + std::to_string(line) +
                    "vbCrLfmore";
        }
        return text + "/*/" + std::to_string(mileage) + "[END]</html>";
    }
};

/// The panes and flows of a new order in a small window, over a pharmacy of a few options. No host.
class OrderWindow {
    class Page : public screen::OrderCostText {
    public:
        explicit Page(CostPage& page) : page_(page) {}
        std::string ChubangJunCost(const CostRequest& request) override {
            page_.requests.push_back(request);
            page_.whileAsked();
            if (page_.fault) throw basics::Fault(*page_.fault);
            return page_.answer;
        }
        std::string ChubangJunCostUpdate(const UpdateRequest&) override { return page_.answer; }

    private:
        CostPage& page_;
    };
    class Files : public screen::FileSystemObject {
    public:
        explicit Files(OrderWindow& owner) : owner_(owner) {}
        std::string fixedFolder(std::string_view name) override { return "/logs/" + std::string(name); }
        bool folderExists(const std::string&) override { return false; }
        void createFolder(const std::string&) override {
            if (owner_.diskFull) throw basics::Fault("disk full");
        }
        void writeTextFile(const std::string& path, std::string_view text) override {
            owner_.logs[path] = text;
        }

    private:
        OrderWindow& owner_;
    };

public:
    /// Order types 0 "탕전" (herbs, decoction), 1 "첩약" (herbs), 2 "기타구입" (neither).
    static void stock(const TestDatabase& pharmacy) {
        pharmacy.run(
            "INSERT INTO t_JobList (JL_PK, JL_Prompt, JL_DrugVisible, JL_TangJunVisible, JL_Order) VALUES"
            " (5, '탕전', 1, 1, 1), (7, '첩약', 1, 0, 2), (9, '기타구입', 0, 0, 3);"
            "INSERT INTO t_TangJunMethodList (TJML_PK, TJML_Prompt, TJML_Order) VALUES (1, '일반탕전', 1), (2, '압력탕전', 2);"
            "INSERT INTO t_TangJunAddList (TJAL_PK, TJAL_Prompt, TJAL_Slot, TJAL_Type, TJAL_Order) VALUES"
            " (1, '녹용', 3, 1, 1), (2, '산제', 64, 2, 2);");
    }

    explicit OrderWindow(const TestDatabase& pharmacy) {
        auto connection = std::make_unique<FaultyConnection>(pharmacy.connect());
        line = desktop.line = connection.get();
        session.g_conYakGuk = std::move(connection);
        session.m_DTRPK = 1;
        desktop.components().add("OrderCostText.clsOrderCostText",
                                 [this] { return std::make_unique<Page>(page); });
        desktop.components().add("Scripting.FileSystemObject",
                                 [this] { return std::make_unique<Files>(*this); });
        send.Send2Chart.add([this](const ordering::ChartRecord& record) {
            sent.push_back(record);
            if (chartFault) throw basics::Fault(*chartFault);
        });
        herbs.Form_Load();
        options.Form_Load();
        price.Form_Load();
        patient.Form_Load();
        options.Load_JobList();
        options.Load_TangJun();
        options.Load_TangJunAdd();
        herbs.Init_DrugGrids();
        balance.Init_StockGrids();
        for (const auto method : {data::pay::deposit, data::pay::later})
            payment.cboPaymentMethod.addEntry(method);
        line->statements.clear();
    }

    void addHerb(const char* name, int key, const char* grams, const char* price_, const char* won,
                 const char* note = "") {
        tables::XArrayDB& lines = session.g_xaDrug;
        const int row = lines.upperRow() + 1;
        lines.insertRows(row);
        const std::string cells[] = {"",
                                     name,
                                     std::string("한약국 ") + name,
                                     std::to_string(key),
                                     grams,
                                     price_,
                                     won,
                                     std::to_string(row + 1),
                                     "0",
                                     "",
                                     note};
        for (int column = 0; column <= 10; ++column) lines.set(row, column, cells[column]);
        herbs.tdbDGL.refresh();
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
        addHerb("당귀", 11, "4", "25.5", "102");
        addHerb("작약", 12, "3.5", "1,000", "3,500", "볶은 것");
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
    /// What the user does while the window stands.
    void run(std::function<void()> script) { desktop.show(form, std::move(script)); }
    /// Composes, prices and presses the send.
    void sendOrder() {
        compose();
        run([this] {
            user.press("ssrCostConfirm");
            user.press("ssrCBJSend");
        });
    }

    OrderDesktop desktop;
    CostPage page;
    std::map<std::string, std::string> logs;
    bool diskFull = false;
    std::optional<std::string> chartFault;
    std::vector<ordering::ChartRecord> sent;
    session::Session session;
    FaultyConnection* line = nullptr;
    screen::Window form{desktop, "frmOrder", 19200, 12000};
    composition::OrderFrames frames{form, {}};
    ordering::SendGate gate{form, frames};
    composition::OrderOptions options{form, frames, session, gate};
    composition::HerbTable herbs{form, frames, session, gate};
    composition::DoseFields dose{form, frames, session, herbs, gate};
    composition::PatientDelivery patient{form, frames, gate};
    composition::SenderBlock sender{form, frames};
    composition::PaymentChoice payment{form, frames, gate};
    composition::DosageSheet sheet{form, frames, session, patient.txtPatientName, gate};
    account::BalanceView balance{form, {}, session};
    ordering::OrderDraft draft{session, frames, herbs, dose, options, patient, sender, payment, sheet};
    ordering::CostConfirmation price{form, draft, gate};
    ordering::OrderSend send{form, draft, gate, price, balance};
    console::UserActions user{desktop};
};

}  // namespace zelvo::testing
