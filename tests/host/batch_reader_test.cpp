#include "host/batch_reader.h"

#include <gtest/gtest.h>

#include <vector>

namespace tarvoni::host {
namespace {

using Texts = std::vector<std::string>;

// The batches that the lines make, each with the count of lines before it.
Texts Read(BatchReader::End end, const Texts& lines) {
  BatchReader reader(end);
  Texts batches;
  const auto add = [&batches](const std::optional<BatchReader::Batch>& batch) {
    if (batch) batches.push_back(std::to_string(batch->lines_before) + ":" + batch->text);
  };
  for (const auto& line : lines) add(reader.Take(line));
  add(reader.Finish());
  return batches;
}

TEST(BatchReader, GoSeparatesBatchesOfAFile) {
  EXPECT_EQ(Read(BatchReader::End::kGo, {"", "SELECT 1;", "SELECT 2", " Go \r", "go", "-- nur", "SELECT 3"}),
            (Texts{"1:SELECT 1;\nSELECT 2\n", "5:-- nur\nSELECT 3\n"}));
}

TEST(BatchReader, SemicolonEndsABatchAtThePrompt) {
  EXPECT_EQ(Read(BatchReader::End::kGoOrSemicolon,
                 {"SELECT 1; ", "UPDATE X", "SET A = 1;  -- fertig", "SELECT", "2"}),
            (Texts{"0:SELECT 1; \n", "1:UPDATE X\nSET A = 1;  -- fertig\n", "3:SELECT\n2\n"}));
}

TEST(BatchReader, SemicolonInsideATextACommentOrANameEndsNothing) {
  EXPECT_EQ(Read(BatchReader::End::kGoOrSemicolon,
                 {"SELECT 'a;", "b''c;", "' -- d;", "/* e;", "*/ [f;", "], \"g;", "\" -- h", ";"}),
            (Texts{"0:SELECT 'a;\nb''c;\n' -- d;\n/* e;\n*/ [f;\n], \"g;\n\" -- h\n;\n"}));
}

}  // namespace
}  // namespace tarvoni::host
