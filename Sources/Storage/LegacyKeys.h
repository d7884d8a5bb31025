#pragma once

namespace quorvane {

class SecretStore;

/// Moves the API keys that an older version kept in the desktop's password storage into the key file. An item is
/// deleted only when the file holds a key of its provider afterwards, so that no key is ever lost; an item that cannot
/// be read, or is no UTF-8 text, stays where it is and is tried again at the next launch.
void moveLegacyKeys(SecretStore &store);

} // namespace quorvane
