# find_package(DoctorZELVO) gives the target DoctorZELVO::DoctorZELVO.
include(${CMAKE_CURRENT_LIST_DIR}/DoctorZELVOTargets.cmake)
