// The digital seal: openssl signs the original string through a batch file in the working folder, or this
// process does it in its place.
#pragma once

#include "platform/signature.hpp"
#include "tolvex/sealing.hpp"

namespace tolvex {

// Documents dated after 2010 are sealed with SHA-1, older ones with MD5.
Digest digest_for(Date date);

// The text as UTF-8, one character per byte. Throws Error 5 for a character whose lead byte would not fit.
Text utf8_characters(TextView text);

// Whether an issue ended half-way here: its sello.bat, which goes, was still there.
bool discard_old_batch(const Text& folder);
// Writes sello.bat into the folder: the two openssl commands. Throws Error when the file cannot be written,
// or when the folder is none that it could name.
void write_seal_batch(const Text& folder, Digest digest);
// Writes utf8.txt, the bytes that are signed.
void write_original_string(const Text& folder, const Text& utf8);
// Runs sello.bat to its end and reads the seal it left, uncleaned. Throws Error when there is none.
Text run_seal_batch(const Text& folder);
// What sello.bat would do, where set_sealing chose so: the seal of the bytes by the folder's pkey.key.pem,
// which leaves the same files. Throws Error when the key cannot be read.
bool seals_in_process();
Text seal_in_process(const Text& folder, Digest digest, const Text& utf8);
// Only the Base64 characters and "=".
Text clean_seal(const Text& seal);
// Removes what there is of the four work files.
void remove_seal_files(const Text& folder);

} // namespace tolvex
