#include "platform/signature.hpp"

#include "platform/windows/windows.hpp"

#include <wincrypt.h>

#include <algorithm>
#include <string>
#include <vector>

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

// The bytes between the lines of a PEM text.
std::string der_of(const std::string& pem)
{
    DWORD size = 0;
    const auto decode = [&](BYTE* bytes) {
        return CryptStringToBinaryA(pem.data(), static_cast<DWORD>(pem.size()), CRYPT_STRING_BASE64HEADER,
                                    bytes, &size, nullptr, nullptr) != FALSE;
    };
    std::string der(decode(nullptr) ? size : 0, '\0');
    if (der.empty() || !decode(reinterpret_cast<BYTE*>(der.data()))) return {};
    return der;
}

// A structure of the system's own out of DER bytes; empty when they hold no such thing.
std::string decoded(const char* structure, std::string_view der)
{
    DWORD size = 0;
    const auto decode = [&](char* bytes) {
        return CryptDecodeObjectEx(X509_ASN_ENCODING, structure, octets(der), static_cast<DWORD>(der.size()),
                                   0, nullptr, bytes, &size) != FALSE;
    };
    std::string bytes(decode(nullptr) ? size : 0, '\0');
    if (bytes.empty() || !decode(bytes.data())) return {};
    return bytes;
}

std::string bytes_of(const CRYPT_DATA_BLOB& blob)
{
    return {reinterpret_cast<const char*>(blob.pbData), blob.cbData};
}

// The elements of a DER sequence, encoded still.
std::vector<std::string> elements_of(std::string_view der)
{
    const std::string sequence = decoded(X509_SEQUENCE_OF_ANY, der);
    if (sequence.empty()) return {};
    const auto& any = *reinterpret_cast<const CRYPT_SEQUENCE_OF_ANY*>(sequence.data());
    std::vector<std::string> elements;
    for (DWORD i = 0; i < any.cValue; ++i) elements.push_back(bytes_of(any.rgValue[i]));
    return elements;
}

// What a DER octet string or whole number holds, the latter from its last byte on.
std::string content_of(const char* structure, std::string_view der)
{
    const std::string blob = decoded(structure, der);
    return blob.empty() ? blob : bytes_of(*reinterpret_cast<const CRYPT_DATA_BLOB*>(blob.data()));
}

// The numbers of an RSA key (RFC 8017, A.1.2) in their order: version, n, e, d, p, q, dP, dQ, qInv. PKCS #8
// wraps them into the octet string behind its version and algorithm. Fewer for what is no such key.
std::vector<std::string> key_numbers(const std::string& pem)
{
    std::vector<std::string> elements = elements_of(der_of(pem));
    if (elements.size() == 3) elements = elements_of(content_of(X509_OCTET_STRING, elements[2]));
    std::vector<std::string> numbers;
    for (const std::string& each : elements) numbers.push_back(content_of(X509_MULTI_BYTE_UINT, each));
    return numbers;
}

// The key in the form that CryptImportKey takes; empty for what is none.
std::string key_blob(const std::string& pem)
{
    const std::vector<std::string> numbers = key_numbers(pem);
    if (numbers.size() != 9 || numbers[1].empty() || numbers[2].size() > sizeof(DWORD)) return {};
    const std::size_t length = numbers[1].size();
    struct
    {
        BLOBHEADER header;
        RSAPUBKEY key;
    } start{{PRIVATEKEYBLOB, CUR_BLOB_VERSION, 0, CALG_RSA_KEYX},
            {0x32415352 /* RSA2 */, static_cast<DWORD>(length * 8), 0}};
    std::copy(numbers[2].begin(), numbers[2].end(), reinterpret_cast<char*>(&start.key.pubexp));
    std::string blob(reinterpret_cast<const char*>(&start), sizeof(start));
    const auto append = [&](std::string number, std::size_t size) {
        number.resize(size);
        blob += number;
    };
    append(numbers[1], length);
    for (const std::size_t i : {4, 5, 6, 7, 8}) append(numbers[i], (length + 1) / 2);
    append(numbers[3], length);
    return blob;
}

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

// A key, and the provider that computes with it.
struct ProvidedKey
{
    HCRYPTPROV provider = 0;
    HCRYPTKEY key = 0;

    ProvidedKey()
    {
        check(CryptAcquireContextW(&provider, nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT),
              u"CryptAcquireContext");
    }
    ~ProvidedKey()
    {
        if (key) CryptDestroyKey(key);
        CryptReleaseContext(provider, 0);
    }
    ProvidedKey(const ProvidedKey&) = delete;
};

} // namespace

struct Certificate::Native : ProvidedKey
{};

Certificate::Certificate(std::string_view der) : native_(std::make_unique<Native>())
{
    const std::unique_ptr<const CERT_CONTEXT, decltype(&CertFreeCertificateContext)> certificate(
        CertCreateCertificateContext(X509_ASN_ENCODING, octets(der), static_cast<DWORD>(der.size())),
        &CertFreeCertificateContext);
    if (!certificate) throw no_certificate(u"no se pudo leer");
    CERT_PUBLIC_KEY_INFO& key = certificate->pCertInfo->SubjectPublicKeyInfo;
    if (std::string_view(key.Algorithm.pszObjId) != szOID_RSA_RSA)
        throw no_certificate(u"su llave es de otra clase");
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

struct PrivateKey::Native : ProvidedKey
{};

PrivateKey::PrivateKey(const std::string& pem) : native_(std::make_unique<Native>())
{
    const std::string blob = key_blob(pem);
    if (blob.empty()) throw invalid_call(u"no es una llave privada RSA sin contraseña en forma PEM");
    check(
        CryptImportKey(native_->provider, octets(blob), static_cast<DWORD>(blob.size()), 0, 0, &native_->key),
        u"CryptImportKey");
}

PrivateKey::~PrivateKey() = default;

std::string PrivateKey::signature(Digest digest, std::string_view message) const
{
    const Hash hash(native_->provider, digest, message);
    DWORD size = 0;
    check(CryptSignHashW(hash.get(), AT_KEYEXCHANGE, nullptr, 0, nullptr, &size), u"CryptSignHash");
    std::string reversed(size, '\0'); // CryptoAPI begins with the last byte
    check(CryptSignHashW(hash.get(), AT_KEYEXCHANGE, nullptr, 0, reinterpret_cast<BYTE*>(reversed.data()),
                         &size),
          u"CryptSignHash");
    return {reversed.rbegin(), reversed.rend()};
}

} // namespace tolvex
