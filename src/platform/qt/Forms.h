#pragma once

#include <QtWidgets/QWidget>
#include <memory>
#include <string>

namespace zelvo::qt {

/// A property that a form bears, also while it stands in no window yet.
inline constexpr const char* formMark = "form";

/// The form of a window of this class name ("frmMessage"), each widget named after its field. Throws Fault
/// where there is none. `first` gets the form while it is empty.
std::unique_ptr<QWidget> makeForm(const std::string& windowName, void (*first)(QWidget&) = nullptr);

}  // namespace zelvo::qt
