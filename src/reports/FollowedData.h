#pragma once

#include "core/DataChange.h"
#include "core/DataSnapshot.h"

// The account list and categories a panel keeps, brought up to date after an
// operation: a change made in place hands over just the records it wrote, and
// every other change comes with the whole set read again.
namespace FollowedData {

void follow(DataSnapshot &kept, const DataChange &change, const DataSnapshot &read);

} // namespace FollowedData
