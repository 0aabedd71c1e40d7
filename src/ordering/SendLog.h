#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "ordering/OrderDraft.h"
#include "screen/Desktop.h"
#include "tables/XArrayDB.h"

namespace zelvo::ordering {

/// The text of the log of an order: HTML without line ends, as a person would read it in a browser.
/// `serverTime` is "yyyy-mm-dd hh:mm:ss". Lets the event loop run once a herb and a cost line; throws Fault
/// when an array can't be read.
std::string sendLogText(screen::Desktop& desktop, const OrderDraft& draft, const tables::XArrayDB& costs,
                        const std::string& serverTime);

/// Writes a log as "zelvo_" + 14 digits + ".htm", and holds it; another log of that second stays as it is.
/// Throws Fault.
std::unique_ptr<screen::HeldFile> Write_SendLog(screen::FileSystemObject& files, const std::string& text,
                                                const std::string& serverTime);
/// Sixteen digits that tell one text from another.
std::string printOf(std::string_view text);
/// Takes the log of that second and print away, where there is one that nobody holds. Throws Fault.
void Remove_SendLog(screen::FileSystemObject& files, const std::string& serverTime, std::string_view print);

}  // namespace zelvo::ordering
