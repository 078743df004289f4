#include "maintenance/certificate_text.hpp"

#include "support/tables.hpp"

namespace tolvex::testing {
namespace {

TEST(CertificateText, dates_of_openssl_become_days_first_without_a_leading_zero)
{
    expect_all<Text, Text>(ConvierteFecha, {{u"notBefore=Oct 22 16:42:26 2010 GMT", u"22-10-2010"},
                                            {u" NOTAFTER=Jan  2 06:00:00 2012 GMT ", u"2-01-2012"},
                                            {u"Dec 31 23:59:59 2049 GMT", u"31-12-2049"},
                                            {u"notAfter=ago 15 10:00:00 2014 GMT", u"15-00-2014"},
                                            {u"notBefore=", u""},
                                            {u"Feb", u"-02-"},
                                            {u"  ", u""}});
}

TEST(CertificateText, the_number_is_every_second_digit_of_the_serial)
{
    expect_all<Text, Text>(ObtenNumeroCertificado, {{u"serial=3330303031", u"30001"},
                                                    {u"serial=3A330", u"30"},
                                                    {u"serial=333", u"33"},
                                                    {u"12", u"2"},
                                                    {u"serial=", u""},
                                                    {u"7", u""}});
}

TEST(CertificateText, the_body_is_what_stands_between_the_markers)
{
    expect_all<Text, Text>(
        ExtraeCertificado,
        {{u"-----BEGIN CERTIFICATE-----\nMIIB\nCERT==\n-----END CERTIFICATE-----\n", u"MIIB\r\nCERT==\r\n"},
         {u"-----begin x509 certificate-----\rAB\r-----End Trusted Certificate-----\rdropped", u"AB\r\n"},
         {u"A\r\nB\r\n", u"A\r\n\r\nB\r\n\r\n"},
         {u"-----END CERTIFICATE-----", u""},
         {u"", u""}});
}

} // namespace
} // namespace tolvex::testing
