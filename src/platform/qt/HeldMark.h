#pragma once

namespace zelvo::qt {

/// What a window of the host bears on Windows while it is held, with the number of the program that holds it:
/// whoever outlives that program gives the window back, and no object opens one of ours over it.
inline constexpr auto heldMark = L"DoctorZELVO.held";

}  // namespace zelvo::qt
