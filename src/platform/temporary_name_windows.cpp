#include <windows.h>

#include <array>

#include "platform/temporary_name.h"
#include "platform/wide_text_windows.h"

namespace vesmora {

std::string ComputerName() {
  std::array<wchar_t, MAX_COMPUTERNAME_LENGTH + 1> name{};
  DWORD size = static_cast<DWORD>(name.size());
  return GetComputerNameW(name.data(), &size) != 0 ? Utf8(name.data()) : "";
}

long ProcessNumber() { return static_cast<long>(GetCurrentProcessId()); }

bool HasEnded(long process) {
  const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, static_cast<DWORD>(process));
  if (handle == nullptr) return GetLastError() == ERROR_INVALID_PARAMETER;
  const bool hasEnded = WaitForSingleObject(handle, 0) == WAIT_OBJECT_0;
  CloseHandle(handle);
  return hasEnded;
}

}  // namespace vesmora
