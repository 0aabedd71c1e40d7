#pragma once

#include <QtWidgets/QMainWindow>
#include <map>
#include <memory>
#include <vector>

#include "ChartCall.h"
#include "Patients.h"
#include "RecordPage.h"

namespace Ui {
class ChartWindow;
}

namespace chart {

/// The clinic's chart: its patients, the record of the chosen one, and the button that opens ZELVO for him.
class ChartWindow : public QMainWindow {
    Q_OBJECT

public:
    /// `clinic` holds what every call hands over: the server, the account, the clinic's own values.
    ChartWindow(ChartCall clinic, std::vector<Patient> patients);
    ~ChartWindow() override;

    /// Opens ZELVO for the chosen patient and returns when its window has closed.
    void openZelvo();
    /// Puts an order into a patient's record.
    void keep(std::int32_t patientPk, const doctorzelvo::ChartRecord& order);

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void fillList();
    void bindKeys();
    void showPatient();
    void tell(const QString& failure);
    const Patient* chosen() const;
    ChartCall callFor(const Patient& patient) const;

    std::unique_ptr<Ui::ChartWindow> ui_;
    ChartCall clinic_;
    std::vector<Patient> patients_;
    std::map<std::int32_t, std::vector<RecordEntry>> records_;
    bool calling_ = false;
};

}  // namespace chart
