// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>

#include <memory>
#include <string_view>

struct evp_md_ctx_st;

/// The SHA-256 of a content that comes in parts. That of OpenSSL uses the processor's own instructions; Qt's
/// takes eight times as long, which is more than reading and compressing a file does.
class Sha256
{
public:
    Sha256();
    ~Sha256();
    Sha256(Sha256&&) noexcept;
    Sha256& operator=(Sha256&&) noexcept;

    void add(std::string_view part);

    /// The 32 bytes of what was added. What is added next begins a new content.
    [[nodiscard]] QByteArray result();

    /// The 32 bytes of a whole content.
    [[nodiscard]] static QByteArray of(std::string_view content);

private:
    struct Free
    {
        void operator()(evp_md_ctx_st* context) const;
    };

    void begin();

    std::unique_ptr<evp_md_ctx_st, Free> m_context;
};
