// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/Sha256.h"

#include "support/Testing.h"

/// The examples of the standard, each as a whole, in parts, and after another content.
TEST(Sha256, KnowsTheStandardsExamples)
{
    const struct
    {
        std::string content;
        const char* hash;
    } cases[] = {
        {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {std::string(1'000'000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    };
    Sha256 parts;
    for (const auto& [content, hash] : cases) {
        EXPECT_EQ(Sha256::of(content).toHex(), hash);
        for (std::size_t at = 0; at < content.size(); at += 1000)
            parts.add(std::string_view(content).substr(at, 1000));
        EXPECT_EQ(parts.result().toHex(), hash) << content.size();
    }
}
