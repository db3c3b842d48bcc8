#include <windows.h>

#include <winhttp.h>

#include <optional>
#include <string_view>
#include <vector>

#include "base/win32/system_library.h"
#include "base/win32/unique_handle.h"
#include "core/log.h"
#include "update/http.h"

namespace velquin::update {
namespace {

constexpr wchar_t kUserAgent[] = L"Velquin/1.0";
constexpr wchar_t kNoCacheHeaders[] = L"Cache-Control: no-cache, no-store, max-age=0\r\nPragma: no-cache\r\n";
constexpr int kTimeoutMs = 5000;
// Parts of the body are gathered up to this many bytes before they are handed on.
constexpr size_t kGatheredBytes = size_t{1} << 16;

// winhttp.dll is not among the DLLs that Windows pins: its functions are looked up on first use.
struct WinHttp {
#define WINHTTP_FUNCTION(member, name) \
    decltype(&::WinHttp##name) member = library().function<decltype(::WinHttp##name)>("WinHttp" #name)
    WINHTTP_FUNCTION(crackUrl, CrackUrl);
    WINHTTP_FUNCTION(open, Open);
    WINHTTP_FUNCTION(setOption, SetOption);
    WINHTTP_FUNCTION(setTimeouts, SetTimeouts);
    WINHTTP_FUNCTION(connect, Connect);
    WINHTTP_FUNCTION(openRequest, OpenRequest);
    WINHTTP_FUNCTION(sendRequest, SendRequest);
    WINHTTP_FUNCTION(receiveResponse, ReceiveResponse);
    WINHTTP_FUNCTION(queryHeaders, QueryHeaders);
    WINHTTP_FUNCTION(queryDataAvailable, QueryDataAvailable);
    WINHTTP_FUNCTION(readData, ReadData);
    WINHTTP_FUNCTION(closeHandle, CloseHandle);
#undef WINHTTP_FUNCTION

    static base::SystemLibrary& library() {
        static base::SystemLibrary winhttp(L"winhttp.dll");
        return winhttp;
    }
    bool isComplete() const {
        return crackUrl && open && setOption && setTimeouts && connect && openRequest && sendRequest &&
               receiveResponse && queryHeaders && queryDataAvailable && readData && closeHandle;
    }
};

const WinHttp& winHttp() {
    static const WinHttp functions;
    return functions;
}

struct HttpHandleTraits {
    using Handle = HINTERNET;
    static Handle none() { return nullptr; }
    static void close(Handle handle) { winHttp().closeHandle(handle); }
};
using HttpHandle = base::Unique<HttpHandleTraits>;

struct Address {
    std::wstring host;
    std::wstring object;  // path and query
    INTERNET_PORT port = 0;
    bool isSecure = false;
};

std::optional<Address> splitUrl(const std::wstring& url) {
    wchar_t host[256] = {};
    wchar_t path[4096] = {};
    wchar_t extra[2048] = {};
    URL_COMPONENTS parts{};
    parts.dwStructSize = sizeof(parts);
    parts.lpszHostName = host;
    parts.dwHostNameLength = static_cast<DWORD>(std::size(host));
    parts.lpszUrlPath = path;
    parts.dwUrlPathLength = static_cast<DWORD>(std::size(path));
    parts.lpszExtraInfo = extra;
    parts.dwExtraInfoLength = static_cast<DWORD>(std::size(extra));
    if (!winHttp().crackUrl(url.c_str(), static_cast<DWORD>(url.size()), 0, &parts)) {
        return std::nullopt;
    }
    return Address{host, std::wstring(path) + extra, parts.nPort, parts.nScheme == INTERNET_SCHEME_HTTPS};
}

bool setOption(HINTERNET handle, DWORD option, DWORD value) {
    return winHttp().setOption(handle, option, &value, sizeof(value)) != 0;
}

// What has to hold for a whole session. An older Windows that does not know TLS 1.3 gets TLS 1.2 alone, and nothing
// older than that.
bool secureSession(HINTERNET session) {
    return (setOption(session, WINHTTP_OPTION_SECURE_PROTOCOLS,
                      WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_2 | WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_3) ||
            setOption(session, WINHTTP_OPTION_SECURE_PROTOCOLS, WINHTTP_FLAG_SECURE_PROTOCOL_TLS1_2)) &&
           setOption(session, WINHTTP_OPTION_REDIRECT_POLICY, WINHTTP_OPTION_REDIRECT_POLICY_DISALLOW_HTTPS_TO_HTTP);
}

// The wait for the first byte of an answer has a limit of its own. And whoever answers, in the end a server that a
// redirect names, gets to know nothing of this user: no password of Windows, no cookie.
bool prepareRequest(HINTERNET request, uint32_t receiveTimeoutMs) {
    return setOption(request, WINHTTP_OPTION_RECEIVE_RESPONSE_TIMEOUT, receiveTimeoutMs) &&
           setOption(request, WINHTTP_OPTION_AUTOLOGON_POLICY, WINHTTP_AUTOLOGON_SECURITY_LEVEL_HIGH) &&
           setOption(request, WINHTTP_OPTION_DISABLE_FEATURE, WINHTTP_DISABLE_COOKIES);
}

std::optional<DWORD> statusCode(HINTERNET request) {
    DWORD code = 0;
    DWORD size = sizeof(code);
    return winHttp().queryHeaders(request, WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER, nullptr, &code, &size,
                                  nullptr)
               ? std::optional(code)
               : std::nullopt;
}

// The length that the answer announces for its body, in bytes. As text, since the number that WinHTTP gives ends at
// four gigabytes.
std::optional<uint64_t> announcedLength(HINTERNET request) {
    const auto header = [request](DWORD name, std::span<wchar_t> text) {
        auto size = static_cast<DWORD>(text.size_bytes() - sizeof(wchar_t));
        return winHttp().queryHeaders(request, name, nullptr, text.data(), &size, nullptr) && text[0] != L'\0';
    };
    // Beside chunks a length means nothing (RFC 9112, section 6.3).
    wchar_t text[32] = {};
    wchar_t encoding[64] = {};
    if (header(WINHTTP_QUERY_TRANSFER_ENCODING, encoding) || !header(WINHTTP_QUERY_CONTENT_LENGTH, text)) {
        return std::nullopt;
    }
    uint64_t length = 0;
    for (const wchar_t* c = text; *c != L'\0'; ++c) {
        if (*c < L'0' || *c > L'9' || length > UINT64_MAX / 10 - 1) {
            return std::nullopt;
        }
        length = length * 10 + static_cast<uint64_t>(*c - L'0');
    }
    return length;
}

// Why a request ended early: its text, and Windows' error code, taken before closing handles changes it.
struct Failure {
    const wchar_t* text;
    DWORD code;
};
using Outcome = std::optional<Failure>;

Outcome failure(const wchar_t* text) {
    return Failure{text, GetLastError()};
}

Outcome readBody(HINTERNET request, const HttpErrors& errors, const HttpBody& body) {
    const std::optional<uint64_t> announced = announcedLength(request);
    if (const wchar_t* refused = body.begin()) {
        return failure(refused);
    }
    uint64_t received = 0;
    std::vector<std::byte> gathered;
    for (bool ended = false; !ended;) {
        DWORD available = 0;
        if (!winHttp().queryDataAvailable(request, &available)) {
            return failure(errors.available);
        }
        const size_t filled = gathered.size();
        DWORD read = 0;
        if (available > 0) {
            gathered.resize(filled + available);
            if (!winHttp().readData(request, gathered.data() + filled, available, &read)) {
                return failure(errors.read);
            }
            gathered.resize(filled + read);
            received += read;
        }
        ended = read == 0;
        if (ended || gathered.size() >= kGatheredBytes) {
            if (const wchar_t* refused = body.append(gathered)) {
                return failure(refused);
            }
            gathered.clear();
        }
    }
    return announced && received != *announced ? Outcome(Failure{errors.read, ERROR_HANDLE_EOF}) : std::nullopt;
}

// The sequence of one request.
Outcome runRequest(const std::wstring& url, uint32_t receiveTimeoutMs, const HttpErrors& errors, const HttpBody& body,
                   DWORD& status) {
    if (!winHttp().isComplete()) {
        return Failure{errors.session, ERROR_MOD_NOT_FOUND};
    }
    const std::optional<Address> address = splitUrl(url);
    if (!address) {
        return failure(errors.url);
    }
    // Closed in reverse order, whatever happens.
    const HttpHandle session(winHttp().open(kUserAgent, WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, WINHTTP_NO_PROXY_NAME,
                                            WINHTTP_NO_PROXY_BYPASS, 0));
    if (!session || !secureSession(session.get()) ||
        !winHttp().setTimeouts(session.get(), kTimeoutMs, kTimeoutMs, kTimeoutMs, static_cast<int>(receiveTimeoutMs))) {
        return failure(errors.session);
    }
    const HttpHandle connection(winHttp().connect(session.get(), address->host.c_str(), address->port, 0));
    if (!connection) {
        return failure(errors.connection);
    }
    const HttpHandle request(winHttp().openRequest(
        connection.get(), L"GET", address->object.c_str(), nullptr, WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
        WINHTTP_FLAG_REFRESH | (address->isSecure ? DWORD{WINHTTP_FLAG_SECURE} : 0)));
    if (!request || !prepareRequest(request.get(), receiveTimeoutMs)) {
        return failure(errors.request);
    }
    if (!winHttp().sendRequest(request.get(), kNoCacheHeaders, static_cast<DWORD>(-1), WINHTTP_NO_REQUEST_DATA, 0, 0,
                               0) ||
        !winHttp().receiveResponse(request.get(), nullptr)) {
        return failure(errors.exchange);
    }
    status = statusCode(request.get()).value_or(0);
    if (status < 200 || status > 299) {
        return failure(errors.status);
    }
    return readBody(request.get(), errors, body);
}

}  // namespace

bool httpGet(const std::wstring& url, uint32_t receiveTimeoutMs, const HttpErrors& errors, const HttpBody& body,
             std::wstring& error) {
    DWORD status = 0;
    const Outcome outcome = runRequest(url, receiveTimeoutMs, errors, body, status);
    if (!outcome) {
        return true;
    }
    error = outcome->text;
    if (outcome->text == errors.status) {
        error += std::to_wstring(status) + L".";
    } else {
        writeSetupLog(L"request failed: error=" + std::to_wstring(outcome->code) + L" url=" + singleLine(url));
    }
    return false;
}

}  // namespace velquin::update
