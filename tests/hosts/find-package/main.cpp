#include <doctorzelvo/DoctorZELVO.hpp>
#include <iostream>

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    doctorzelvo::clsZELVOInterface zelvo;
    zelvo.Send2Chart = [](const doctorzelvo::ChartRecord& order) { std::cout << order.strJob << "\n"; };
    zelvo.ZELVOInterface(nullptr, argv[1], argv[2], 1024, "김하늘", "", 41, 2, "", "", "", "", "", "", "", "",
                         "", "", "");
    if (!zelvo.errorText().empty()) {
        std::cerr << zelvo.errorText() << "\n";
        return 1;
    }
    return doctorzelvo::shutdown() ? 0 : 3;
}
