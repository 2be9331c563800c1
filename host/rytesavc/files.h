// Files as the reader and the writer of XML use them: what fails is noted as the thread's failure.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "xml_input.h"

namespace rytesavc {

// A regular file open for reading.
class InputFile : public XmlInput {
 public:
  explicit InputFile(const char* path) : path_(path) {}

  bool Open() { return Noted(file_.Open(path_)); }
  bool Read(char* to, std::size_t room, std::size_t& length) override {
    return Noted(file_.Read(to, room, length));
  }
  // As it was when the file was opened.
  std::size_t size() const override { return file_.size(); }
  // Goes back to the start. False after a failure.
  bool Rewind() { return !failed_ && Noted(file_.Rewind()); }

 private:
  bool Noted(int error);

  std::string path_;
  bool failed_ = false;
  platform::InputFile file_;
};

// A file that replaces another as a whole. What was written without a Finish is removed.
class OutputFile {
 public:
  explicit OutputFile(const char* path) : path_(path), file_(path) {}

  // Each is false on a failure, after which only the destructor may follow.
  bool Open() { return Noted(file_.Open()); }
  bool Write(std::string_view content) { return Noted(file_.Write(content)); }
  bool Finish() { return Noted(file_.Finish()); }

 private:
  bool Noted(const platform::FileFault& fault) const;

  std::string path_;
  platform::OutputFile file_;
};

}  // namespace rytesavc
