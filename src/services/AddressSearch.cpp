#include "services/AddressSearch.h"

#include <exception>
#include <utility>

#include "basics/Numbers.h"
#include "screen/Window.h"

namespace zelvo::services {

AddressSearch::AddressSearch(screen::Window& form, session::Session& session, const screen::Field& patientTab,
                             const std::vector<AddressBlock>& blocks)
    : form_(form), session_(session), patientTab_(patientTab) {
    for (const AddressBlock& block : blocks) {
        block.ssrZipCode.onKeyDown.add([this](int& key) { byEnter_ = key == screen::keys::enter; });
        screen::usePressed(block.ssrZipCode, [this, block] { search(block); });
    }
}

/// The blank behind the address is where the user goes on with the house and the floor.
void AddressSearch::search(const AddressBlock& block) {
    const bool byEnter = std::exchange(byEnter_, false);
    const screen::Field* done = nullptr;
    try {
        const screen::BusyPointer busy(form_.desktop());
        const std::string former = block.zip.text();
        std::string Juso = block.juso.text(), Zip = former;
        block.zip.setFocus();
        ask(searchPage(), Juso, Zip);
        Juso += " ";
        if (block.watch && Zip != former) block.watch->priceOutdated();
        block.juso.setText(Juso);
        block.zip.setText(Zip);
        done = &block.juso;
    } catch (const std::exception&) {
        form_.desktop().alarm("우편번호검색 폼 호출중 에러 발생.", "우편번호검색");
        done = &block.ssrZipCode;
    }
    // On from the code, Enter would come to the button once more.
    if (byEnter) form_.moveFocusBehind(*done);
}

void AddressSearch::ask(const std::string& page, std::string& Juso, std::string& Zip) {
    std::string url = page;
    std::int32_t left = basics::toInt32(form_.left + 100);
    std::int32_t top = basics::toInt32(patientTab_.top + form_.top - 200);
    form_.desktop().components().make<screen::PostalLookup>()->ZipCode(url, Juso, Zip, left, top);
}

/// The address of the search page, "" where the pharmacy has none.
std::string AddressSearch::searchPage() {
    data::RecordSet page;
    session_.connection().open(page, "SELECT PIF_FindZipURL FROM t_PxInfo ", data::Cursor::Static);
    return page.atEnd() ? std::string() : page.text(0);
}

}  // namespace zelvo::services
