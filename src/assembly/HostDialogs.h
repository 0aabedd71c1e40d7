#pragma once

#include "doctorzelvo/doctorzelvo.h"
#include "ordering/ChartRecord.h"
#include "screen/Desktop.h"

namespace zelvo::assembly {

/// Registers the dialogs that the chart brings of its own, in the place of those registered so far. Both have
/// to outlive the windows.
void registerOwnDialogs(screen::Desktop& desktop, const doctorzelvo_chart& chart);

/// Tells the chart of an order. Throws Fault with the chart's own words where it fails.
void sendToChart(const doctorzelvo_chart& chart, const ordering::ChartRecord& record);

}  // namespace zelvo::assembly
