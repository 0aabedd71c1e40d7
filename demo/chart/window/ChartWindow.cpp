#include "ChartWindow.h"

#include <QtCore/QDate>
#include <QtGui/QCloseEvent>
#include <QtGui/QShortcut>
#include <QtWidgets/QMessageBox>
#include <array>

#include "ui_ChartWindow.h"

namespace chart {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

std::chrono::year_month_day today() {
    const QDate day = QDate::currentDate();
    return {std::chrono::year(day.year()), std::chrono::month(static_cast<unsigned>(day.month())),
            std::chrono::day(static_cast<unsigned>(day.day()))};
}

QString ageAndSex(const Patient& patient) {
    return QStringLiteral("%1세 · %2")
        .arg(ageOf(patient, today()))
        .arg(sexOf(patient) == 1   ? "남"
             : sexOf(patient) == 2 ? "여"
                                   : "-");
}

}  // namespace

ChartWindow::ChartWindow(ChartCall clinic, std::vector<Patient> patients)
    : ui_(std::make_unique<Ui::ChartWindow>()), clinic_(std::move(clinic)), patients_(std::move(patients)) {
    ui_->setupUi(this);
    if (!clinic_.hospitalName.empty()) setWindowTitle(text(clinic_.hospitalName) + " 차트");
    ui_->splitter->setStretchFactor(0, 0);
    ui_->splitter->setStretchFactor(1, 1);
    fillList();
    bindKeys();
    showPatient();
    ui_->tblPatients->setFocus();
}

ChartWindow::~ChartWindow() = default;

void ChartWindow::fillList() {
    QTableWidget& table = *ui_->tblPatients;
    table.setRowCount(static_cast<int>(patients_.size()));
    for (int row = 0; row < table.rowCount(); ++row) {
        const Patient& patient = patients_[static_cast<std::size_t>(row)];
        const std::array cells{QString::number(patient.pk), text(patient.name), ageAndSex(patient),
                               text(patient.cell)};
        for (std::size_t i = 0; i < cells.size(); ++i) {
            // The table owns its items.
            table.setItem(row, static_cast<int>(i), std::make_unique<QTableWidgetItem>(cells[i]).release());
        }
    }
    table.resizeColumnsToContents();
    table.horizontalHeader()->setStretchLastSection(true);
    table.setCurrentCell(0, 1);
}

void ChartWindow::bindKeys() {
    connect(ui_->tblPatients, &QTableWidget::currentCellChanged, this, [this] { showPatient(); });
    connect(ui_->tblPatients, &QTableWidget::cellDoubleClicked, this, [this] { openZelvo(); });
    connect(ui_->cmdZelvo, &QPushButton::clicked, this, [this] { openZelvo(); });
    // Not the table's own activation: some desktops activate at a single click.
    for (const int key : {Qt::Key_Return, Qt::Key_Enter}) {
        auto& enter = *std::make_unique<QShortcut>(QKeySequence(key), ui_->tblPatients).release();
        enter.setContext(Qt::WidgetShortcut);
        connect(&enter, &QShortcut::activated, this, [this] { openZelvo(); });
    }
}

const Patient* ChartWindow::chosen() const {
    const int row = ui_->tblPatients->currentRow();
    return row < 0 ? nullptr : &patients_[static_cast<std::size_t>(row)];
}

void ChartWindow::showPatient() {
    const Patient* const patient = chosen();
    ui_->cmdZelvo->setEnabled(patient);
    if (!patient) return;
    ui_->lblName->setText(text(patient->name));
    ui_->lblAge->setText(ageAndSex(*patient));
    ui_->lblJumin->setText(text(patient->jumin));
    ui_->lblPhones->setText(text(patient->cell) +
                            (patient->tel.empty() ? QString() : " / " + text(patient->tel)));
    ui_->lblAddress->setText("(" + text(patient->zip) + ") " + text(patient->address));
    const std::vector<RecordEntry>& record = records_[patient->pk];
    writeRecord(*ui_->txtRecord->document(), record);
    ui_->statusbar->showMessage(
        record.empty() ? QString()
                       : QStringLiteral("%1님의 진료 기록에 처방 %2건이 있습니다. 마지막 처방: %3")
                             .arg(text(patient->name))
                             .arg(record.size())
                             .arg(record.back().when.toString(QStringLiteral("yyyy-MM-dd HH:mm"))));
}

ChartCall ChartWindow::callFor(const Patient& patient) const {
    ChartCall call = clinic_;
    call.patientPk = patient.pk;
    call.patientName = patient.name;
    call.patientJumin = patient.jumin;
    call.patientAge = ageOf(patient, today());
    call.patientSex = sexOf(patient);
    call.patientCell = patient.cell;
    call.patientTel = patient.tel;
    call.patientEmail = patient.email;
    call.patientZip = patient.zip;
    call.patientAddress = patient.address;
    return call;
}

void ChartWindow::openZelvo() {
    const Patient* const patient = chosen();
    if (!patient || calling_) return;
    doctorzelvo::clsZELVOInterface zelvo;
    zelvo.Send2Chart = [this, pk = patient->pk](const doctorzelvo::ChartRecord& order) { keep(pk, order); };
    QString failure;
    calling_ = true;
    try {
        callFor(*patient).make(zelvo);
        failure = text(zelvo.errorText());
    } catch (const std::exception& fault) {
        failure = QString::fromUtf8(fault.what());
    }
    calling_ = false;
    activateWindow();
    ui_->tblPatients->setFocus();
    if (!failure.isEmpty()) tell(failure);
}

void ChartWindow::keep(std::int32_t patientPk, const doctorzelvo::ChartRecord& order) {
    records_[patientPk].push_back({QDateTime::currentDateTime(), order});
    showPatient();
}

void ChartWindow::tell(const QString& failure) {
    QMessageBox box(QMessageBox::Warning, "ZELVO 처방", failure, QMessageBox::NoButton, this);
    box.setTextFormat(Qt::PlainText);
    box.addButton("확인", QMessageBox::AcceptRole);
    box.exec();
}

/// ZELVO's window runs inside our call: it has to close first.
void ChartWindow::closeEvent(QCloseEvent* event) {
    event->setAccepted(!calling_);
}

}  // namespace chart
