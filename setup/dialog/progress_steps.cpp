#include "setup/dialog/progress_steps.h"

#include <algorithm>

#include "base/text.h"
#include "base/windows_path.h"
#include "core/product.h"
#include "localization/text_ids.h"

namespace velquin::setup {
namespace {

constexpr int kNoText = -1;

// Where in the line its subject stands.
enum class Subject : uint8_t {
    kNone,
    kFileName,    // of the path that is the rest of the line, up to the end mark
    kTargetName,  // of the second path of "from -> to"
    kPath,        // the whole path, up to the end mark
    kFixed,       // the name in the table
};

struct StepRow {
    std::wstring_view beginning;
    int textId;
    Subject subject = Subject::kNone;
    std::wstring_view mark = {};  // what ends the subject, or the subject itself
};
// The first row whose beginning the line has counts.
constexpr StepRow kSteps[] = {
    {L"install folder refused", kNoText},
    {L"install folder already gone", kNoText},
    {L"install folder removed: ", text::kUninstall, Subject::kPath},
    {L"install folder: ", text::kInstallFolder, Subject::kPath, L" ("},
    {L"old install folder removed: ", text::kUninstall, Subject::kPath},
    {L"moved from: ", text::kUninstall, Subject::kPath},
    {L"MSI extracted: ", text::kInstall, Subject::kFixed, L"Velquin.msi"},
    {L"no running copy of ", text::kClose, Subject::kPath},
    {L"process ", text::kClose, Subject::kFixed, kAppFileName},
    {L"removing existing MSI products", text::kUninstall, Subject::kFixed, kProductName},
    {L"msiexec launch install:", text::kInstall, Subject::kFixed, L"Velquin.msi"},
    {L"msiexec launch ", text::kUninstall, Subject::kFixed, kProductName},
    {L"embedded payload extracted: ", text::kInstall, Subject::kFileName},
    {L"copied: ", text::kInstall, Subject::kTargetName},
    {L"registering in: ", text::kInstallFolder, Subject::kPath, L" desktop shortcut="},
    {L"shortcut created: ", kNoText, Subject::kFileName, L" -> "},
    {L"shortcut deleted: ", text::kUninstall, Subject::kFileName},
    {L"scheduled task", text::kStartWithWindows},
    {L"uninstall entry written: ", kNoText, Subject::kFixed, kProductName},
    {L"application registered: ", kNoText, Subject::kPath},
    {L"registry key deleted: ", text::kUninstall, Subject::kFileName},
    {L"folder removed: ", text::kUninstall, Subject::kFileName},
    {L"empty folder removed: ", text::kUninstall, Subject::kFileName},
    {L"file deleted: ", text::kUninstall, Subject::kFileName},
};

std::wstring subjectOf(const StepRow& row, std::wstring_view line) {
    if (row.subject == Subject::kFixed) {
        return std::wstring(row.mark);
    }
    std::wstring_view rest = line.substr(row.beginning.size());
    if (row.subject == Subject::kTargetName) {
        constexpr std::wstring_view kTo = L" -> ";
        const size_t to = rest.rfind(kTo);
        return base::fileName(to != std::wstring_view::npos ? rest.substr(to + kTo.size()) : rest);
    }
    // From the end: a folder's name may hold the mark as well, and not all lines of a beginning have one.
    const size_t end = row.mark.empty() ? std::wstring_view::npos : rest.rfind(row.mark);
    const bool isInPath = row.subject == Subject::kPath && rest.find(L'\\', end) != std::wstring_view::npos;
    rest = rest.substr(0, isInPath ? std::wstring_view::npos : end);
    return row.subject == Subject::kFileName ? base::fileName(rest)
           : row.subject == Subject::kPath   ? std::wstring(rest)
                                             : std::wstring();
}

}  // namespace

std::optional<ProgressStep> progressStep(std::wstring_view logLine) {
    const auto* const row = std::ranges::find_if(kSteps, [&](const StepRow& each) {
        return base::equalsIgnoringCase(logLine.substr(0, each.beginning.size()), each.beginning);
    });
    if (row == std::end(kSteps)) {
        return std::nullopt;
    }
    ProgressStep step{row->textId, subjectOf(*row, logLine)};
    return step == ProgressStep{} ? std::nullopt : std::optional(std::move(step));
}

std::wstring progressLine(std::wstring_view text, std::wstring_view subject) {
    std::wstring line(text);
    line += text.empty() || subject.empty() ? L"" : L": ";
    return line += subject;
}

std::wstring formatElapsed(int64_t seconds) {
    const auto all = static_cast<unsigned>(std::clamp<int64_t>(seconds, 0, 359999));
    const unsigned hours = all / 3600;
    const unsigned minutes = all / 60 % 60;
    return (hours > 0 ? std::to_wstring(hours) + L":" + base::zeroPadded(minutes, 2) : std::to_wstring(minutes)) +
           L":" + base::zeroPadded(all % 60, 2);
}

int progressHeading(SetupAction action) {
    switch (action) {
        case SetupAction::Repair:
            return text::kRepair;
        case SetupAction::Reinstall:
            return text::kReinstall;
        case SetupAction::Uninstall:
            return text::kUninstall;
        default:
            return text::kInstallHeading;
    }
}

}  // namespace velquin::setup
