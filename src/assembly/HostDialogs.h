#pragma once

#include "doctorzelvo/DoctorZELVO.hpp"
#include "screen/Components.h"

namespace zelvo::assembly {

/// Registers the dialogs that the chart brings of its own, in the place of those registered so far.
void registerOwnDialogs(screen::Components& components, const doctorzelvo::clsZELVOInterface& chart);

}  // namespace zelvo::assembly
