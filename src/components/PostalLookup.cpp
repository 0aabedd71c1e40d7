#include "components/PostalLookup.h"

namespace zelvo::components {

bool PostalLookup::ZipCode(std::string& url, std::string& juso, std::string& zip, std::int32_t& left,
                           std::int32_t& top) {
    frmPostalLookup form(desktop_, search_, url);
    form.left = left;
    form.top = top;
    if (!form.ask()) return false;
    juso = form.taken().address;
    zip = form.taken().zip;
    return true;
}

}  // namespace zelvo::components
