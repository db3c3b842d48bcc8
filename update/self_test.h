// The update client's checks of itself, which the setup runs on request: one without the network, one against what is
// really published.
#pragma once

#include <string>
#include <string_view>

#include "update/manifest.h"

namespace velquin::update {

// The manifest that the check without the network reads.
extern const wchar_t kSampleManifest[];

// Reads `manifest` and requires what has to come out of kSampleManifest. Null, or the text of what is wrong.
const wchar_t* checkSampleManifest(std::wstring_view manifest);

// What a published manifest that was read without failure has to hold for this version of the program. Empty, or the
// text of what is wrong.
std::wstring checkLiveManifest(const UpdateCheckResult& manifest);

// Each: true when all is well, else false with `error` set. The second one takes as long as its three requests.
bool runUpdateServiceSelfTest(std::wstring& error);
bool runLiveUpdateManifestSelfTest(std::wstring& error);

}  // namespace velquin::update
