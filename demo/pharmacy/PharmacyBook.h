#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "pharmacy/OrderPricing.h"
#include "pharmacy/Sqlite.h"

namespace zelvo::pharmacy {

struct Doctor {
    DoctorTerms terms;
    std::string validPay;  // "1" where the pay method is open: deposit, later, settlement
};

struct OrderType {
    bool hasHerbs = false;
    bool hasDecoction = false;
};

/// A stored order with what decides whether it may still change.
struct BookedOrder {
    StoredOrder order;
    bool waiting = false;  // state 0 and not cancelled
};

struct OrderRow {
    std::int64_t key = 0;
    std::string date, patient, state;
    bool paid = false, cancelled = false;
    std::int64_t total = 0;  // won
};

/// The pharmacy's side of the database: what the cost pages look up and what the pharmacy's people change.
/// Every operation throws DatabaseError when the database fails.
class PharmacyBook {
public:
    /// Throws DatabaseError when the file is no pharmacy.
    explicit PharmacyBook(const std::string& path);

    std::optional<Doctor> doctor(std::int32_t doctorKey) const;
    /// Nothing for a type that is unknown or no longer offered; so are the three that follow.
    std::optional<OrderType> orderType(std::int32_t jobKey) const;
    bool offersMethod(int methodKey) const;
    bool offersAddOn(int slot) const;
    /// The herb's price today, won a gram; nothing when it is not sold today.
    std::optional<double> herbPrice(std::int32_t herbKey) const;
    /// The doctor's order; nothing when the doctor has none of that key.
    std::optional<BookedOrder> order(std::int32_t doctorKey, std::int32_t orderKey) const;

    /// All orders, the newest first.
    std::vector<OrderRow> orders() const;
    /// Move an order on, mark it paid, pay in for the doctor of that login id (out, below 0). False when
    /// there is no such order or doctor.
    bool setState(std::int64_t orderKey, int state);
    bool setPaid(std::int64_t orderKey, bool paid);
    bool addDeposit(const std::string& doctorId, std::int64_t won);

    /// Tells the clinics where the pages of this server stand; `base` is "http://", host and port.
    void publishAddresses(const std::string& base);

private:
    bool changeOne(Query& query);

    Database database_;
};

/// The word that the clinics read for a state of 0 to 3.
std::string stateWord(std::int64_t state);

}  // namespace zelvo::pharmacy
