// Keys that the openssl program made when the tests were built, and its signatures of one message.
#pragma once

#include "platform/signature.hpp"
#include "tolvex/types.hpp"

namespace tolvex::testing {

struct KeyOfOpenssl
{
    int bits;
    const char* pem;   // PKCS #8
    const char* pkcs1; // the same key
    TextView by_md5, by_sha1;
};
inline constexpr std::string_view signed_message = "||3.0|caf\xC3\xA9||";

} // namespace tolvex::testing

#include "made_keys_of_openssl.hpp"
