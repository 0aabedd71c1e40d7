#pragma once

#include <chrono>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "basics/Fault.h"
#include "data/CodePlace.h"

namespace zelvo::data {

/// A fault of the driver or the server. Its text is theirs, for a developer's eyes, and may hold values.
class DriverFault : public basics::Fault {
public:
    /// `code`: the driver's state and number, "23000/2627".
    DriverFault(const std::string& description, std::string code)
        : Fault(description), code_(std::move(code)) {}
    const std::string& code() const { return code_; }

private:
    std::string code_;
};

/// What is wrong with how this machine or its line is set up; its text holds nothing of a patient or a
/// doctor.
class SetupFault : public basics::Fault {
public:
    using Fault::Fault;
};

/// A failure of the database, for those who help a clinic: no value is in it.
struct Failure {
    std::string operation;  ///< that asked: "Insert_ChubangJun"
    std::string statement;  ///< verb and table: "INSERT t_ChubangJun"
    std::string
        cause;  ///< the driver's state and number, what is set up wrongly, or "slow"; "" for none of them
    std::chrono::milliseconds took{0};
};

/// What may be told of a failure's cause.
std::string causeOf(const std::exception_ptr& fault);
/// Verb and table of a statement, and nothing else of it.
std::string kindOfStatement(std::string_view statement);
/// The function that a place in the code stands in, without its rooms and arguments.
std::string functionOf(const CodePlace& place);

}  // namespace zelvo::data
