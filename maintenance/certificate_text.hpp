// What is made of the lines that openssl prints of a certificate.
#pragma once

#include "core/text.hpp"

namespace tolvex {

// The characters of the text that occur in the allowed set, in order.
Text FiltraCaracteres(TextView text, TextView allowed);

// "notBefore=Oct 22 16:42:26 2010 GMT" is 22-10-2010; the day has no leading zero. An unknown month is "00".
Text ConvierteFecha(TextView line);

// The number of a certificate whose serial is its ASCII form in hexadecimal: "serial=3330303031" is 30001.
Text ObtenNumeroCertificado(TextView serial);

// The lines between the markers of a PEM text, each ended by CR LF. Empty lines count: a CR LF in the text
// gives one.
Text ExtraeCertificado(TextView pem);

} // namespace tolvex
