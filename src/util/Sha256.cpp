// SPDX-License-Identifier: GPL-3.0-or-later

#include "util/Sha256.h"

#include <new>
#include <openssl/evp.h>

namespace {

constexpr qsizetype hashLength = 32;

/// Nothing but a lack of memory makes it fail.
void require(int result)
{
    if (result != 1) throw std::bad_alloc();
}

} // namespace

void Sha256::Free::operator()(evp_md_ctx_st* context) const
{
    EVP_MD_CTX_free(context);
}

Sha256::Sha256() : m_context(EVP_MD_CTX_new())
{
    if (m_context == nullptr) throw std::bad_alloc();
    begin();
}

Sha256::~Sha256() = default;
Sha256::Sha256(Sha256&&) noexcept = default;
Sha256& Sha256::operator=(Sha256&&) noexcept = default;

void Sha256::begin()
{
    require(EVP_DigestInit_ex(m_context.get(), EVP_sha256(), nullptr));
}

void Sha256::add(std::string_view part)
{
    require(EVP_DigestUpdate(m_context.get(), part.data(), part.size()));
}

QByteArray Sha256::result()
{
    QByteArray hash(hashLength, Qt::Uninitialized);
    require(EVP_DigestFinal_ex(m_context.get(), reinterpret_cast<unsigned char*>(hash.data()), nullptr));
    begin();
    return hash;
}

QByteArray Sha256::of(std::string_view content)
{
    Sha256 hash;
    hash.add(content);
    return hash.result();
}
