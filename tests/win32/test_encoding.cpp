#include "test_encoding.h"

#include "makers/win32/win32_encoding.h"

std::unique_ptr<vrix::Encoding> vrix::testEncoding(unsigned codePage) { return win32Encoding(codePage); }
