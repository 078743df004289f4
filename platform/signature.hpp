// Signatures of seals: RSA with PKCS #1 v1.5 padding (RFC 8017, 8.2), by the system's own cryptography.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace tolvex {

enum class Digest
{
    md5,
    sha1
};

// A certificate and the public key in it.
class Certificate
{
public:
    // From its DER bytes. Throws Error 5 for what is no X.509 certificate, or one whose key is not RSA.
    explicit Certificate(std::string_view der);
    ~Certificate();
    Certificate(const Certificate&) = delete;
    Certificate& operator=(const Certificate&) = delete;

    // Whether that is the signature of the message by the certificate's private key. A signature of any bytes
    // and length is answered; throws Error 51 when the system's cryptography itself fails.
    bool verifies(Digest digest, std::string_view message, std::string_view signature) const;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

// A private key.
class PrivateKey
{
public:
    // From its PEM text (RFC 7468), PKCS #8 or PKCS #1. Throws Error 5 for what is no RSA key, or one with a
    // password.
    explicit PrivateKey(const std::string& pem);
    ~PrivateKey();
    PrivateKey(const PrivateKey&) = delete;
    PrivateKey& operator=(const PrivateKey&) = delete;

    // Throws Error 51 when the system's cryptography fails.
    std::string signature(Digest digest, std::string_view message) const;

private:
    struct Native;
    std::unique_ptr<Native> native_;
};

} // namespace tolvex
