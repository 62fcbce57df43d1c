// Which code page the number 0 stands for. Internal to the host library.
#pragma once

#include <string>

namespace shr::detail {

// False, and nothing changed, when the system has no such code page.
bool SetHostCodePage(const std::string& name);
const std::string& HostCodePage();

// shr::WtoAN and shr::AtoW for a code page by its name.
std::string EncodeNamed(const std::string& name, const std::wstring& text);
std::wstring DecodeNamed(const std::string& name, const std::string& bytes);

}  // namespace shr::detail
