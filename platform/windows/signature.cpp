#include "platform/signature.hpp"

#include "platform/windows/windows.hpp"

#include <wincrypt.h>

#include <algorithm>
#include <string>

namespace tolvex {

namespace {

void check(BOOL succeeded, const char16_t* what)
{
    if (succeeded) return;
    throw Error(numbers::internal, what + (u": " + system_message(GetLastError())));
}

Error no_certificate(TextView reason)
{
    return invalid_call(Text(u"no es un certificado con llave RSA: ") += reason);
}

const BYTE* octets(std::string_view bytes) { return reinterpret_cast<const BYTE*>(bytes.data()); }

// A hash of the message, which goes when the scope ends.
class Hash
{
public:
    Hash(HCRYPTPROV provider, Digest digest, std::string_view message)
    {
        const ALG_ID algorithm = digest == Digest::sha1 ? CALG_SHA1 : CALG_MD5;
        check(CryptCreateHash(provider, algorithm, 0, 0, &handle_), u"CryptCreateHash");
        if (CryptHashData(handle_, octets(message), static_cast<DWORD>(message.size()), 0)) return;
        const DWORD code = GetLastError();
        CryptDestroyHash(handle_);
        throw Error(numbers::internal, u"CryptHashData: " + system_message(code));
    }
    ~Hash() { CryptDestroyHash(handle_); }
    Hash(const Hash&) = delete;

    HCRYPTHASH get() const { return handle_; }

private:
    HCRYPTHASH handle_ = 0;
};

} // namespace

struct Certificate::Native
{
    HCRYPTPROV provider = 0;
    HCRYPTKEY key = 0;

    ~Native()
    {
        if (key) CryptDestroyKey(key);
        if (provider) CryptReleaseContext(provider, 0);
    }
};

Certificate::Certificate(std::string_view der) : native_(std::make_unique<Native>())
{
    const std::unique_ptr<const CERT_CONTEXT, decltype(&CertFreeCertificateContext)> certificate(
        CertCreateCertificateContext(X509_ASN_ENCODING, octets(der), static_cast<DWORD>(der.size())),
        &CertFreeCertificateContext);
    if (!certificate) throw no_certificate(u"no se pudo leer");
    CERT_PUBLIC_KEY_INFO& key = certificate->pCertInfo->SubjectPublicKeyInfo;
    if (std::string_view(key.Algorithm.pszObjId) != szOID_RSA_RSA)
        throw no_certificate(u"su llave es de otra clase");
    check(CryptAcquireContextW(&native_->provider, nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT),
          u"CryptAcquireContext");
    check(CryptImportPublicKeyInfo(native_->provider, X509_ASN_ENCODING, &key, &native_->key),
          u"CryptImportPublicKeyInfo");
}

Certificate::~Certificate() = default;

bool Certificate::verifies(Digest digest, std::string_view message, std::string_view signature) const
{
    const Hash hash(native_->provider, digest, message);
    const std::string reversed(signature.rbegin(), signature.rend()); // CryptoAPI begins with the last byte
    return CryptVerifySignatureW(hash.get(), octets(reversed), static_cast<DWORD>(reversed.size()),
                                 native_->key, nullptr, 0) != FALSE;
}

} // namespace tolvex
