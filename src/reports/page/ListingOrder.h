// The orders in which reports list people.
#pragma once

#include <array>
#include <string_view>

namespace tvx {

struct ListingOrder {
    int index = 0;            // 1 to 6, as the store's readers take it
    std::string_view caption; // of its option
    std::string_view words;   // in the title of a page
};

/// In the order of their options.
constexpr std::array<ListingOrder, 6> ListingOrders{{
    {1, "Last name", "in last name order."},
    {2, "Employee ID", "in Employee ID order."},
    {3, "Assignment", "in assignment order."},
    {4, "Birth date", "in date of birth order."},
    {5, "Hire date", "hired date order."},
    {6, "First name", "in first name order."},
}};

} // namespace tvx
