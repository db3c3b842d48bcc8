// The setup log and its time stamps. A line is the local time, two blanks, the text and a line feed, in UTF-8. The file
// is only ever appended to, in a mode that other writers share; it is never truncated, and writing never fails visibly.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace velquin {

struct TimeStamp {
    unsigned year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0, millisecond = 0;
};

// "3.2.2025  9:05:00": day and month without leading zeros, two blanks between date and time.
std::wstring formatLocalTime(const TimeStamp& time);
// "2025-02-03T09:05:00.012Z", for file names and files.
std::wstring formatUtcTime(const TimeStamp& time);
// "20250203", the form of InstallDate.
std::wstring formatDate(const TimeStamp& time);
// Text from elsewhere (an address, what a server answered) as part of a line: without what breaks a line or turns its
// direction, and with an ellipsis where it is longer than 300 characters.
std::wstring singleLine(std::wstring_view text);
// A whole log line as it goes into the file.
std::string formatLogLine(const TimeStamp& local, std::wstring_view text);

TimeStamp localTime();
TimeStamp utcTime();
std::wstring localTimeStamp();
std::wstring utcTimeStamp();

// Appends one line to the log beside `configPath`, making the folders where needed.
void writeLogBeside(const std::wstring& configPath, std::wstring_view text);
// The same beside the user's configuration file: the setup log.
void writeSetupLog(std::wstring_view text);

// From now on every line of the setup log is also given to `observer`, on the thread that writes it and after it was
// written; an empty one ends that. Any thread may set it. A line that is being written may reach an observer that has
// just been taken away.
using LogObserver = std::function<void(std::wstring_view)>;
void setLogObserver(LogObserver observer);
void tellLogObserver(std::wstring_view text);

}  // namespace velquin
