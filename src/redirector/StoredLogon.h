#pragma once

#include "runtime/Secret.h"

#include <QString>

#include <vector>

namespace netrove {

struct SmbLogon;

/// A logon that the user has stored.
struct StoredLogon {
    QString computer = {}; ///< its name without "\\", in any case; empty for all computers
    QString user = {};     ///< as it was typed: "user", "DOMAIN\user" or "user@domain"
    Secret password = {};
    bool isInKeyring = false; ///< else it is kept for this run only
};

/// What a server is told: the user's domain and name as separate texts.
[[nodiscard]] SmbLogon LogonOf(const StoredLogon& stored);

/// Whether what was typed names a user, and not a domain alone.
[[nodiscard]] bool NamesUser(const StoredLogon& stored);

/// The logons as one text for the keyring: for each a line with the computer, the user and the
/// password, percent-encoded and separated by blanks.
[[nodiscard]] Secret EncodeLogons(const std::vector<StoredLogon>& logons);
/// The logons in such a text. Lines that aren't logons are left out.
[[nodiscard]] std::vector<StoredLogon> DecodeLogons(const Secret& text);

} // namespace netrove
