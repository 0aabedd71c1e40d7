#include "composition/clsUserSetting.h"

namespace zelvo::composition {

namespace {

constexpr const char* application = "Vexora";
constexpr const char* section = "벡 소라";
constexpr const char* hospNameKey = "복용법 추가메모1";
constexpr const char* phoneNoKey = "복용법 추가메모2";

}  // namespace

std::string clsUserSetting::BogYakHospName() const {
    return store_.read(application, section, hospNameKey, "");
}

void clsUserSetting::BogYakHospName(const std::string& strHospName) {
    store_.write(application, section, hospNameKey, strHospName);
}

std::string clsUserSetting::BogYakPhoneNo() const {
    return store_.read(application, section, phoneNoKey, "");
}

void clsUserSetting::BogYakPhoneNo(const std::string& strPhoneNo) {
    store_.write(application, section, phoneNoKey, strPhoneNo);
}

}  // namespace zelvo::composition
