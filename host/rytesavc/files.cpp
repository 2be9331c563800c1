#include "files.h"

#include "failure.h"

namespace rytesavc {

bool InputFile::Noted(int error) {
  if (error == 0) return true;
  failed_ = true;
  NoteSystemFailure("cannot read", path_, error);
  return false;
}

bool OutputFile::Noted(const platform::FileFault& fault) const {
  if (fault.error != 0) NoteSystemFailure(fault.step, path_, fault.error);
  return fault.error == 0;
}

}  // namespace rytesavc
