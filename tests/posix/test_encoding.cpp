#include "test_encoding.h"

#include "makers/posix/iconv_encoding.h"

std::unique_ptr<vrix::Encoding> vrix::testEncoding(unsigned codePage) { return iconvEncoding(codePage); }
