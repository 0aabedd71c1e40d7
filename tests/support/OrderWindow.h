#pragma once

#include <map>
#include <optional>

#include "account/BalanceView.h"
#include "composition/OrderDesk.h"
#include "data/Words.h"
#include "ordering/CostConfirmation.h"
#include "ordering/OrderDraft.h"
#include "ordering/OrderSend.h"
#include "ordering/SendGate.h"

namespace zelvo::testing {

/// A cost page that answers what it is told, and remembers what it was asked.
struct CostPage {
    std::string answer;
    std::optional<std::string> fault;
    std::function<void()> whileAsked = [] {};
    std::vector<screen::OrderCostText::CostRequest> requests;
    std::vector<screen::OrderCostText::UpdateRequest> updates;

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

/// The panes and flows of a new order in a small window. No host. A box while a transaction is open fails the
/// test: the pharmacy would wait for its reader.
class OrderWindow : public OrderPanes<ordering::SendGate> {
    class Page : public screen::OrderCostText {
    public:
        explicit Page(CostPage& page) : page_(page) {}
        std::string ChubangJunCost(const CostRequest& request) override {
            page_.requests.push_back(request);
            return answered();
        }
        std::string ChubangJunCostUpdate(const UpdateRequest& request) override {
            page_.updates.push_back(request);
            return answered();
        }

    private:
        std::string answered() {
            page_.whileAsked();
            if (page_.fault) throw basics::Fault(*page_.fault);
            return page_.answer;
        }

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
        void keepTextFile(const std::string& path, std::string_view text) override {
            writeTextFile(path, text);
        }
        std::vector<std::string> fileNames(const std::string& folder) override {
            std::vector<std::string> names;
            for (const auto& [path, text] : owner_.logs) {
                if (path.starts_with(folder + "/")) names.push_back(path.substr(folder.size() + 1));
            }
            return names;
        }
        std::string readTextFile(const std::string& path) override {
            return owner_.logs.contains(path) ? owner_.logs[path] : std::string();
        }
        void deleteFile(const std::string& path) override { owner_.logs.erase(path); }

    private:
        OrderWindow& owner_;
    };

public:
    explicit OrderWindow(std::shared_ptr<OrderPharmacy> shared = std::make_shared<OrderPharmacy>())
        : OrderPanes(std::move(shared)) {
        session.m_DTRPK = 1;
        line->server = "server:1";
        desktop.onBox = [this](const screen::MessageBox& box) {
            EXPECT_FALSE(line->inTransaction) << "a box inside a transaction: " << box.text;
        };
        desktop.components().add("OrderCostText.clsOrderCostText",
                                 [this] { return std::make_unique<Page>(page); });
        desktop.components().add("Scripting.FileSystemObject",
                                 [this] { return std::make_unique<Files>(*this); });
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
    void priceAndSend() {
        user.press("ssrCostConfirm");
        user.press("ssrCBJSend");
    }

    CostPage page;
    std::map<std::string, std::string> logs;
    bool diskFull = false;
    std::optional<std::string> chartFault;
    std::vector<ordering::ChartRecord> sent;
    account::BalanceView balance{form, {}, session};
    ordering::OrderDraft draft{session, frames, herbs, dose, options, patient, sender, payment, sheet};
    ordering::CostConfirmation price{form, draft, gate};
    ordering::OrderSend send{form, draft, gate, price, balance};
};

}  // namespace zelvo::testing
