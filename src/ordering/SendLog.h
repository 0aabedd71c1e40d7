#pragma once

#include <string>

#include "ordering/OrderDraft.h"
#include "screen/Desktop.h"
#include "tables/XArrayDB.h"

namespace zelvo::ordering {

/// The text of the log of an order: HTML without line ends, as a person would read it in a browser.
/// `serverTime` is "yyyy-mm-dd hh:mm:ss". Lets the event loop run once a herb and a cost line; throws Fault
/// when an array can't be read.
std::string sendLogText(screen::Desktop& desktop, const OrderDraft& draft, const tables::XArrayDB& costs,
                        const std::string& serverTime);

/// Writes the log into the folder "zelvo", as "zelvo_" + 14 digits + ".htm"; a file of that name is replaced.
/// Shows nothing; false when it could not be written.
bool Write_SendLog(screen::Desktop& desktop, const OrderDraft& draft, const tables::XArrayDB& costs,
                   const std::string& serverTime);
/// Takes the log of an order back that was refused after all, where there is one. Shows nothing.
void Remove_SendLog(screen::Desktop& desktop, const std::string& serverTime);

}  // namespace zelvo::ordering
