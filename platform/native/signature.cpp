#include "platform/signature.hpp"

#include "core/errors.hpp"

#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/rsa.h>
#include <openssl/x509.h>

namespace tolvex {

namespace {

template <auto release>
struct Releasing
{
    template <class Resource>
    void operator()(Resource* resource) const
    {
        release(resource);
    }
};
using X509Handle = std::unique_ptr<X509, Releasing<X509_free>>;
using Key = std::unique_ptr<EVP_PKEY, Releasing<EVP_PKEY_free>>;
using Memory = std::unique_ptr<BIO, Releasing<BIO_free_all>>;
using KeyContext = std::unique_ptr<EVP_PKEY_CTX, Releasing<EVP_PKEY_CTX_free>>;

Error no_certificate(TextView reason)
{
    ERR_clear_error();
    return invalid_call(Text(u"no es un certificado con llave RSA: ") += reason);
}

// libcrypto's own reason; it keeps one queue of them a thread.
void check(int result)
{
    if (result > 0) return;
    const char* reason = ERR_reason_error_string(ERR_peek_last_error());
    ERR_clear_error();
    throw Error(numbers::internal, u"libcrypto: " + to_text(reason ? reason : "no dice por qué"));
}

X509Handle parsed(std::string_view der)
{
    const auto* start = reinterpret_cast<const unsigned char*>(der.data());
    X509Handle certificate(d2i_X509(nullptr, &start, static_cast<long>(der.size())));
    if (!certificate) throw no_certificate(u"no se pudo leer");
    const EVP_PKEY* key = X509_get0_pubkey(certificate.get());
    if (!key || EVP_PKEY_get_base_id(key) != EVP_PKEY_RSA) throw no_certificate(u"su llave es de otra clase");
    return certificate;
}

// What is signed: the digest behind the DER bytes that name it (RFC 8017, 9.2, note 1). The library is not
// told which digest it is, for it may be set to refuse the old ones; old documents carry no other.
std::string digest_info(Digest digest, std::string_view message)
{
    using namespace std::string_literals;
    const bool sha1 = digest == Digest::sha1;
    std::string bytes = sha1 ? "\x30\x21\x30\x09\x06\x05\x2b\x0e\x03\x02\x1a\x05\x00\x04\x14"s
                             : "\x30\x20\x30\x0c\x06\x08\x2a\x86\x48\x86\xf7\x0d\x02\x05\x05\x00\x04\x10"s;
    unsigned char made[EVP_MAX_MD_SIZE];
    std::size_t length = 0;
    check(
        EVP_Q_digest(nullptr, sha1 ? "SHA1" : "MD5", "-fips", message.data(), message.size(), made, &length));
    return bytes.append(reinterpret_cast<const char*>(made), length);
}

int no_password(char*, int, int, void*) { return -1; } // without one, libcrypto would ask at the terminal

Key parsed_key(const std::string& pem)
{
    const Memory memory(BIO_new_mem_buf(pem.data(), static_cast<int>(pem.size())));
    check(memory ? 1 : 0);
    Key key(PEM_read_bio_PrivateKey(memory.get(), nullptr, no_password, nullptr));
    ERR_clear_error();
    if (!key) throw invalid_call(u"no es una llave privada sin contraseña en forma PEM");
    if (EVP_PKEY_get_base_id(key.get()) != EVP_PKEY_RSA) throw invalid_call(u"la llave no es RSA");
    return key;
}

KeyContext context_for(EVP_PKEY* key)
{
    KeyContext context(EVP_PKEY_CTX_new(key, nullptr));
    check(context ? 1 : 0);
    return context;
}

const unsigned char* octets(std::string_view bytes)
{
    return reinterpret_cast<const unsigned char*>(bytes.data());
}

} // namespace

struct Certificate::Native
{
    X509Handle certificate;
};

Certificate::Certificate(std::string_view der) : native_(std::make_unique<Native>(Native{parsed(der)})) {}

Certificate::~Certificate() = default;

bool Certificate::verifies(Digest digest, std::string_view message, std::string_view signature) const
{
    EVP_PKEY* key = X509_get0_pubkey(native_->certificate.get());
    if (signature.size() != static_cast<std::size_t>(EVP_PKEY_get_size(key))) return false;
    const std::string signed_bytes = digest_info(digest, message);
    const KeyContext context = context_for(key);
    check(EVP_PKEY_verify_init(context.get()));
    check(EVP_PKEY_CTX_set_rsa_padding(context.get(), RSA_PKCS1_PADDING));
    const int answer = EVP_PKEY_verify(context.get(), octets(signature), signature.size(),
                                       octets(signed_bytes), signed_bytes.size());
    ERR_clear_error(); // bytes that are no signature at all are told as an error too
    return answer == 1;
}

struct PrivateKey::Native
{
    Key key;
};

PrivateKey::PrivateKey(const std::string& pem) : native_(std::make_unique<Native>(Native{parsed_key(pem)})) {}

PrivateKey::~PrivateKey() = default;

std::string PrivateKey::signature(Digest digest, std::string_view message) const
{
    EVP_PKEY* key = native_->key.get();
    const std::string signed_bytes = digest_info(digest, message);
    const KeyContext context = context_for(key);
    check(EVP_PKEY_sign_init(context.get()));
    check(EVP_PKEY_CTX_set_rsa_padding(context.get(), RSA_PKCS1_PADDING));
    std::string signature(EVP_PKEY_get_size(key), '\0');
    std::size_t length = signature.size();
    check(EVP_PKEY_sign(context.get(), reinterpret_cast<unsigned char*>(signature.data()), &length,
                        octets(signed_bytes), signed_bytes.size()));
    signature.resize(length);
    return signature;
}

} // namespace tolvex
