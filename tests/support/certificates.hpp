// Certificates and private keys as a tax authority hands them out, made by the openssl program.
#pragma once

#include <filesystem>
#include <string>

namespace tolvex::testing {

// The password of every key.
inline constexpr char key_password[] = "contraseña 1";
// The number of every certificate, and its ASCII form as openssl prints it.
inline constexpr char certificate_number[] = "30001000000500003416";
inline constexpr char certificate_serial[] = "3330303031303030303030353030303033343136";

// Makes name.cer (DER) and name.key (encrypted PKCS#8 DER) in the folder; valid from 22 October 2010,
// 16:42:26 GMT to 2 October of the year given, same time.
void make_certificate(const std::filesystem::path& folder, const std::string& name, int last_year);

} // namespace tolvex::testing
