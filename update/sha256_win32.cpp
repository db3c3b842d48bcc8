#include <windows.h>

#include <wincrypt.h>

#include <span>
#include <vector>

#include "base/win32/files.h"
#include "update/sha256.h"

namespace velquin::update {
namespace {

constexpr size_t kChunkBytes = 65536;
constexpr DWORD kDigestBytes = 32;

struct ProviderTraits {
    using Handle = HCRYPTPROV;
    static Handle none() { return 0; }
    static void close(Handle provider) { CryptReleaseContext(provider, 0); }
};
struct HashTraits {
    using Handle = HCRYPTHASH;
    static Handle none() { return 0; }
    static void close(Handle hash) { CryptDestroyHash(hash); }
};

std::wstring hexadecimal(std::span<const BYTE> bytes) {
    constexpr wchar_t kDigits[] = L"0123456789ABCDEF";
    std::wstring text;
    for (const BYTE byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0xF];
    }
    return text;
}

// Gives null, or the text of the error. The handle may be none, for a file that could not be opened.
const wchar_t* digestOf(HANDLE file, std::wstring& hexDigest) {
    if (file == base::FileHandleTraits::none()) {
        return L"Could not open the downloaded setup for SHA-256 verification.";
    }
    base::Unique<ProviderTraits> provider;
    base::Unique<HashTraits> hash;
    if (!CryptAcquireContextW(provider.put(), nullptr, nullptr, PROV_RSA_AES, CRYPT_VERIFYCONTEXT) ||
        !CryptCreateHash(provider.get(), CALG_SHA_256, 0, 0, hash.put())) {
        return L"Windows crypto provider for SHA-256 is unavailable.";
    }
    std::vector<std::byte> chunk(kChunkBytes);
    for (;;) {
        const auto count = base::readSome(file, chunk);
        if (!count) {
            return L"Could not read the downloaded setup during SHA-256 verification.";
        }
        if (*count == 0) {
            break;
        }
        if (!CryptHashData(hash.get(), reinterpret_cast<const BYTE*>(chunk.data()), static_cast<DWORD>(*count), 0)) {
            return L"SHA-256 verification failed while hashing the downloaded setup.";
        }
    }
    BYTE digest[kDigestBytes] = {};
    DWORD size = kDigestBytes;
    if (!CryptGetHashParam(hash.get(), HP_HASHVAL, digest, &size, 0) || size != kDigestBytes) {
        return L"SHA-256 verification could not read the final hash.";
    }
    hexDigest = hexadecimal(digest);
    return nullptr;
}

bool succeeded(const wchar_t* failure, std::wstring& error) {
    if (failure != nullptr) {
        error = failure;
    }
    return failure == nullptr;
}

}  // namespace

bool computeFileSha256(const std::wstring& path, std::wstring& hexDigest, std::wstring& error) {
    const base::UniqueFile file =
        base::openFile(path, GENERIC_READ, FILE_SHARE_READ, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    return succeeded(digestOf(file.get(), hexDigest), error);
}

bool computeFileSha256(const base::HeldFile& file, std::wstring& hexDigest, std::wstring& error) {
    return succeeded(digestOf(file.handle(), hexDigest), error);
}

}  // namespace velquin::update
