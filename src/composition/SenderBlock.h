#pragma once

#include <vector>

#include "composition/OrderFrames.h"
#include "screen/Fields.h"
#include "screen/TextField.h"

namespace zelvo::composition {

/// Who sends the order: the clinic and its doctor.
class SenderBlock {
public:
    SenderBlock(screen::Window& form, OrderFrames& frames);

    screen::TextField txtHospitalName, txtDoctor, txtDoctorCell, txtHospitalTel, txtBalsongZip;
    screen::TwoStateButton ssrZipCode1;
    screen::TextField txtBalsongJuso;

    /// Empties the six fields.
    void clear();
    /// All that is typed here.
    std::vector<screen::TextField*> texts();
};

}  // namespace zelvo::composition
