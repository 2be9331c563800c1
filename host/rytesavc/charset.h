#pragma once
namespace rytesavc {
// What each byte means in a character set of single bytes, -1 for nothing. False for an unknown name.
bool SingleByteCodes(const char* charset, int (&codes)[256]);
}  // namespace rytesavc
