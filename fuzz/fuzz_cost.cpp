#include "Demand.h"
#include "basics/Utf8.h"
#include "ordering/CostAnswer.h"

using namespace zelvo;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const std::size_t lines : {ordering::orderCostLines, ordering::updateCostLines}) {
        const ordering::CostAnswer answer = ordering::readCostAnswer(fuzz::textOf(data, size), lines);
        const bool good = answer.reading == ordering::CostReading::Good;
        fuzz::demand(!good || answer.lines.size() == lines, "a good answer has its lines");
        fuzz::demand(good || answer.reading == ordering::CostReading::Refused || !answer.reason.empty(),
                     "what is wrong is told");
    }
    return 0;
}
