// Makes the current user trust the certificate authority in a DER file: trust_certificate FILE
#include <windows.h>

#include <wincrypt.h>

#include "base/win32/held_file.h"
#include "base/win32/unique_handle.h"

namespace {

struct StoreTraits {
    using Handle = HCERTSTORE;
    static Handle none() { return nullptr; }
    static void close(Handle store) { CertCloseStore(store, 0); }
};

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const auto certificate = base::readWholeFile(count > 1 ? arguments[1] : L"");
    // What is added is kept when the store is closed.
    const base::Unique<StoreTraits> store(
        CertOpenStore(CERT_STORE_PROV_SYSTEM_W, 0, 0, CERT_SYSTEM_STORE_CURRENT_USER, L"Root"));
    return certificate && store &&
                   CertAddEncodedCertificateToStore(
                       store.get(), X509_ASN_ENCODING, reinterpret_cast<const BYTE*>(certificate->data()),
                       static_cast<DWORD>(certificate->size()), CERT_STORE_ADD_REPLACE_EXISTING, nullptr)
               ? 0
               : 1;
}
