#pragma once

namespace quorvane {

/// Replaces what Qt tells assistive technology of every SecureField, for Qt hands out a password's plain text. Any
/// number of calls count as one.
void protectSecureFields();

} // namespace quorvane
