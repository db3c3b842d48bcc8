// One HTTP GET through WinHTTP, as the update client makes them: no cache on the way, TLS 1.2 or newer, never from
// HTTPS back to plain http, every wait bounded.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace velquin::update {

// What a request says when one of its steps fails, in the order of the steps.
struct HttpErrors {
    const wchar_t* url;
    const wchar_t* session = L"WinHTTP session could not be opened.";
    const wchar_t* connection = L"WinHTTP connection could not be opened.";
    const wchar_t* request = L"WinHTTP request could not be opened.";
    const wchar_t* exchange;   // sending, or waiting for the answer
    const wchar_t* status;     // what stands before the status code and a full stop
    const wchar_t* available;  // asking for more of the body
    const wchar_t* read;       // reading it, or it ended before its announced length
};

// Where the body goes. Each call gives null, or the text of the error that ends the request.
struct HttpBody {
    std::function<const wchar_t*()> begin;  // the answer is good and its body begins
    std::function<const wchar_t*(std::span<const std::byte>)> append;
};

// Resolving, connecting and sending wait up to 5000 ms each; the answer, and then each part of the body, up to
// `receiveTimeoutMs`. Redirects are followed; only a status of 200 to 299 is a success. Blocks. False with `error` set,
// and a line with Windows' error code in the setup log, when a step failed.
bool httpGet(const std::wstring& url, uint32_t receiveTimeoutMs, const HttpErrors& errors, const HttpBody& body,
             std::wstring& error);

}  // namespace velquin::update
