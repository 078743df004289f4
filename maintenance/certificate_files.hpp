// A certificate and its private key in the seal folder: the batch files with which openssl converts them, and
// what is read of the files that it leaves. Failures of openssl are not noticed as such; they leave files
// empty or missing.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// What openssl's files say, cleaned of what does not belong there.
struct CertificateReading
{
    Text serial;                // "serial=3330303031"
    Text not_before, not_after; // "notBefore=Oct 22 16:42:26 2010 GMT"
    Text body;                  // Base64 in lines
    Text last_file;             // as it was read, before the body was taken out of it
};

// Converts a certificate (DER) with openssl, hidden, and reads it. The title is its file's name. Throws Error
// 5 without a folder, 53, 57 or 75 when a file cannot be written or read.
CertificateReading convert_certificate(const Text& folder, const Text& certificate, const Text& title);

enum class KeyCheck
{
    not_unlocked,   // there is no pkey.key.pem
    empty,          // pkey.key.pem has 0 bytes
    of_another_one, // its modulus is not the certificate's
    matching
};

struct KeyReading
{
    KeyCheck check = KeyCheck::not_unlocked;
    Text modulus_of_certificate, modulus_of_key; // "Modulus=C0FFEE…"
};

// Unlocks a private key (encrypted PKCS#8 DER) into pkey.key.pem of the folder, openssl asking the user for
// the password in a window of its own, and compares it with the certificate converted before. Throws as
// above.
KeyReading unlock_key(const Text& folder, const Text& key);

// Removes the work files; pkey.key.pem stays.
void remove_certificate_files(const Text& folder, const Text& title);

} // namespace tolvex
