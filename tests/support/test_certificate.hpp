// The certificate of tests/datos/llave.pem in the form of FE_CERTIFICADOS.cCertificado, made with
// openssl req -x509 -new -sha1.
#pragma once

#include "tolvex/types.hpp"

namespace tolvex::testing {

inline constexpr TextView test_certificate =
    u"MIIDXzCCAkegAwIBAgIUMjAwMDEwMDAwMDAxMDAwMDU4NjcwDQYJKoZIhvcNAQEFBQAwPzELMAkGA1UEBhMCTVgxHzAdBgNVBAoM"
    u"FkFiYXJyb3RlcyBMYSBFc3BlcmFuemExDzANBgNVBAMMBlBydWViYTAeFw0yNjExMjExOTA5MzlaFw00NjExMTYxOTA5MzlaMD8x"
    u"CzAJBgNVBAYTAk1YMR8wHQYDVQQKDBZBYmFycm90ZXMgTGEgRXNwZXJhbnphMQ8wDQYDVQQDDAZQcnVlYmEwggEiMA0GCSqGSIb3"
    u"DQEBAQUAA4IBDwAwggEKAoIBAQCCltIJbG4VDGYvmL6sznDdVya9pY6lgOfdxuoi0CGh6W9BowP/bYVCQ7TdZP706amLmjFfIKzC"
    u"YirUwzUeHaPPXJI9MtAeF1ugPbnIouluAnCjZfRHKSTxkrSn7wSNEMwBa8Fw0BNhRASTRXO0XPZWRSRqJ0DHbpy2O41hzWt8izIk"
    u"b888P1CHd7/YgXob19+OU8Cvs2omAPrBX4Xxe/zR4ZzUECNvlfYU/tuDhOX2eKnFE7rlW1dNivOyhqfUsX0K5j26Cn2grJhCjNyc"
    u"KwDY4ES8KjUZdyk/0KAGsJ9qN3hSp/BUDK0abbOuVxUxsJXZ+OaS2RRKfBs4Qp3GdRatAgMBAAGjUzBRMB0GA1UdDgQWBBS0hcpt"
    u"raGlIT3EhOfAJHA/haY28TAfBgNVHSMEGDAWgBS0hcptraGlIT3EhOfAJHA/haY28TAPBgNVHRMBAf8EBTADAQH/MA0GCSqGSIb3"
    u"DQEBBQUAA4IBAQBEEPpnIUQ9j168IS31JdZOM8E7Ohf1lEIG5TL6SNRNtLFX8TrNxNHycKkoy0EosOfl/8HmSwZXoEPcenfPcRL6"
    u"KaGJ6Z/BVLpLryM2W88euPURYMJbXu/UDW7XjI1oiHB25a4lqaTM/Sz0Jzf4GB7WyhXvVfeFdkWi5EmK2/v2L8D888G8jZqyhZO/"
    u"oRUZnmR1eDrQ3IvO78leRQkgWpIhhoWNOrS9W/J+3iYd0e88GpWEoUURKMbYc9MlfRc8EQ++nR8uHyrNpJ0wsDFPmYpt5geYVpim"
    u"xex7wm2ZRlim/p2CeyjOdGPCAPh3x0W+tPTq4fazw54plC3erv0k1dYQ";

} // namespace tolvex::testing
