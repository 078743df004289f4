// Seals that the openssl program made, right and wrong, in the eyes of the system's cryptography.
#include "platform/signature.hpp"

#include "core/base64.hpp"
#include "support/keys_of_openssl.hpp"
#include "support/tables.hpp"
#include "support/test_certificate.hpp"

namespace tolvex::testing {
namespace {

constexpr std::string_view original = "||3.0|caf\xC3\xA9||";

// openssl dgst -md5 -sign llave.pem, then -sha1, and -sha1 with a key of 1024 bits.
constexpr TextView by_md5 =
    u"d80e1Zmj8gz17NgGpLTlxaqecKw0mHBDpPDhxt18sTFgNnfTfawgzEbgc0/VUX8hTB1vC6sPThEoqVUd+E4TFoRAlMNy9cD+"
    u"aW3TSdw7UmIPw1yzeRV5TSJoNGH0P8o52qPkeTzIykWdcaiMPf48SM270/m1Wh3HoCKsR/xc0a9iR0UU4GCOT9joJN4s5qP9"
    u"h10KDT3lC14xK/Xjw4KhtuawHEsX6FS3e/Hfpxn0hADpjZ2LCe8QzVm3STK9hMuT2wauwO7sFREoueJgmZ2KQwZR8a+DdJ2v"
    u"XwWp9XA/fC6VoijVT2bWN+SkU0ddOSIRIya9V7c5AYWTLvrlN68/yg==";
constexpr TextView by_sha1 =
    u"PivmOqSLiMOWb5lOpbDAy0RaUEg/VQ3NKD312er4q06afjePa+v+cms9T23NzzdlsPL2KJ/D5LliHW5Yb817c1Ep7ptOvVnt"
    u"njccAwh4utatywqqfhQJD0rjNQozGWCrLdsmgNN3kIyIgxWejQuwx5bamzmhngtzY4TZ3Vi0liRrqmq7bKWt3F9lcn1VB5E0"
    u"ok08rXdOSVWaDH7PnEOx4dlA4w9pD/kBD7SwpkpDHRzvvOyTGGvnmsunsvNo46EHU3Hi93PbMxcVzUNxnT1nxatimoP1obOo"
    u"PmdiqQpQWAhb/IaF9paMNNNxcwNeVqK3bvaeWET3vGQ1BXD+Kg9eKw==";
constexpr TextView by_another_key =
    u"XmgIODTR9LH8pZN66WAfqucgPCEhgTuq05MTpRdIESl/0J/GQvD8fmeJ84OfOz5SulW+5FH1lhuLdDuRGjAeJlasnTjOW6YU"
    u"CPtLBbXir3CUqO3bmlnL/+ygCeNpvAO1UVozE3r4ahEYXJEhtALIllhQT4Gg7gsvJH28IdCQp6Y=";
// Of a key on an elliptic curve.
constexpr TextView other_certificate =
    u"MIIBbjCCARWgAwIBAgIUXFn6pvUOb3nqtmMKNTwiow6xoFcwCgYIKoZIzj0EAwIwDTELMAkGA1UEAwwCRUMwHhcNMjYxMTIx"
    u"MTkxMDE5WhcNMzYxMTE4MTkxMDE5WjANMQswCQYDVQQDDAJFQzBZMBMGByqGSM49AgEGCCqGSM49AwEHA0IABIL9CzQcXYZS"
    u"ZGPL+zZ/7D/uve9ibeTl8xZ6mEQW9n/LxO1rrLV2jwbfZ/Kea2KIprPPt41Do+mx7ohbYL2tqCGjUzBRMB0GA1UdDgQWBBTX"
    u"Xs+tq4GHSlLX2dd2PfxDlfUiajAfBgNVHSMEGDAWgBTXXs+tq4GHSlLX2dd2PfxDlfUiajAPBgNVHRMBAf8EBTADAQH/MAoG"
    u"CCqGSM49BAMCA0cAMEQCIDhlUM13N8g70ILk3qcJIJ/gXCkjIBLxNRvUp6jXn248AiBMLlVPgxCsYPzjeZ48Z7PcmB2bVmKs"
    u"9q1dUVJlPJn4aQ==";

std::string bytes(TextView base64) { return from_base64(base64).value(); }

TEST(Signature, is_right_for_its_own_digest_and_message_alone)
{
    const Certificate certificate(bytes(test_certificate));
    const std::string md5 = bytes(by_md5), sha1 = bytes(by_sha1);
    std::string last_bit = sha1, first_bit = sha1;
    last_bit.back() ^= 1;
    first_bit.front() ^= 1;
    const struct
    {
        Digest digest;
        std::string_view message;
        std::string signature;
        bool right;
    } cases[] = {
        {Digest::sha1, original, sha1, true},
        {Digest::md5, original, md5, true},
        {Digest::md5, original, sha1, false},
        {Digest::sha1, original, md5, false},
        {Digest::sha1, original.substr(1), sha1, false},
        {Digest::sha1, "", sha1, false},
        {Digest::sha1, original, last_bit, false},
        {Digest::sha1, original, first_bit, false},
        {Digest::sha1, original, bytes(by_another_key), false},
        {Digest::sha1, original, "", false},
        {Digest::sha1, original, sha1.substr(1), false},
        {Digest::sha1, original, sha1 + '\0', false},
        {Digest::sha1, original, '\0' + sha1, false},
        {Digest::sha1, original, std::string(256, '\xFF'), false},
        {Digest::sha1, original, std::string(256, '\0'), false},
        {Digest::sha1, original, std::string(100'000, 'x'), false},
    };
    for (int round = 0; round < 2; ++round) // a wrong one leaves nothing behind
        for (const auto& [digest, message, signature, right] : cases)
            EXPECT_EQ(certificate.verifies(digest, message, signature), right);
}

TEST(Signature, needs_a_certificate_with_an_rsa_key)
{
    const std::string whole = bytes(test_certificate);
    for (const std::string& der :
         {std::string(), std::string("no es un certificado"), whole.substr(0, 400), bytes(other_certificate)})
        EXPECT_EQ(error_number([&] { Certificate certificate(der); }), 5);
}

TEST(Signature, is_the_one_that_the_openssl_program_makes)
{
    for (const KeyOfOpenssl& made : keys_of_openssl)
        for (const char* pem : {made.pem, made.pkcs1}) {
            const PrivateKey key(pem);
            EXPECT_EQ(to_base64(key.signature(Digest::md5, signed_message)), made.by_md5) << made.bits;
            EXPECT_EQ(to_base64(key.signature(Digest::sha1, signed_message)), made.by_sha1) << made.bits;
        }
}

TEST(Signature, needs_an_rsa_key_without_a_password)
{
    const std::string whole = keys_of_openssl[0].pem;
    for (const std::string& pem :
         {std::string(), std::string("no es una llave"), whole.substr(0, whole.size() / 2), whole.substr(30),
          std::string(key_with_a_password), std::string(key_on_a_curve)})
        EXPECT_EQ(error_number([&] { PrivateKey key(pem); }), 5) << pem;
}

} // namespace
} // namespace tolvex::testing
