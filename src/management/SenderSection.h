#pragma once

#include "management/DetailFrames.h"
#include "management/DetailRead.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::management {

/// Who sent the order in view: the clinic and its doctor.
class SenderSection {
public:
    SenderSection(screen::Window& form, DetailFrames& frames);

    screen::TextField txtCBJmHosPital, txtCBJmDTRName, txtCBJmDTRTel, txtCBJmDTRCell, txtCBJmBalZip;
    screen::TwoStateButton ssrZipCode3;
    screen::TextField txtCBJmBalJuso;
    screen::Label lblCBJmDTRPK;

    bool load(const DetailRead& read);
    void clear();
};

}  // namespace zelvo::management
