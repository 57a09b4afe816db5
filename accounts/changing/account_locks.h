#pragma once

#include "session/record_change.h"

/// The locks of every change of the chart. AssSum and UnRegSug are spelt so (sic).
namespace chengheng::account_locks {

inline constexpr LockLists inOrder{WriteRight::accounts, "AssSum AccSum Cyrency UnRegMain UnRegSug",
                                   "Code"};
/// A deletion releases them in reverse.
inline constexpr LockLists ofDeletion{inOrder.right, inOrder.referring, inOrder.own,
                                      ReleaseOrder::reversed};

}  // namespace chengheng::account_locks
