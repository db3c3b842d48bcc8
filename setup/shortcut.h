// Shell links of the product. Every one starts the application minimised and without taking the focus, and carries the
// product's AppUserModelID, so that Windows groups its windows with it.
#pragma once

#include <string>

struct IPropertyStore;

namespace velquin::setup {

// Creates or replaces the link file, making its folder. The working folder is the target's, the icon its first. An
// empty `appUserModelId` is left out. Logs what became of it.
bool createShortcut(const std::wstring& linkPath, const std::wstring& target, const std::wstring& arguments,
                    const std::wstring& description, const std::wstring& appUserModelId);

// Deletes a link file; a missing one counts as deleted. Logs what it deleted and what it could not.
bool deleteShortcut(const std::wstring& linkPath);

// Writes System.AppUserModel.ID to a link's property store and commits it. Returns the first failing HRESULT.
long stampAppUserModelId(IPropertyStore& store, const std::wstring& appUserModelId);

}  // namespace velquin::setup
