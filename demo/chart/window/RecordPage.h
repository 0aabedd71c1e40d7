#pragma once

#include <QtCore/QDateTime>
#include <QtGui/QTextCursor>
#include <vector>

#include "doctorzelvo/DoctorZELVO.hpp"

class QTextDocument;

namespace chart {

/// An order as it stands in a patient's record.
struct RecordEntry {
    QDateTime when;
    doctorzelvo::ChartRecord order;
};

/// Writes a patient's record as a page, the latest entry first.
void writeRecord(QTextDocument& page, const std::vector<RecordEntry>& entries);

}  // namespace chart
