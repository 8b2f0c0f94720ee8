#include "cleaner/finders/Md5.h"

#include "cleaner/finders/FileHash.h"

#include <openssl/evp.h>

namespace {

// Fetched once: an implicit fetch on every digest costs more than the digest
// of a small file.
const EVP_MD *md5Algorithm()
{
    static EVP_MD *algorithm = EVP_MD_fetch(nullptr, "MD5", nullptr);
    return algorithm;
}

} // namespace

Md5::Md5() : m_context(EVP_MD_CTX_new())
{
    init();
}

Md5::~Md5()
{
    EVP_MD_CTX_free(m_context);
}

bool Md5::init()
{
    return EVP_DigestInit_ex(m_context, md5Algorithm(), nullptr) == 1;
}

bool Md5::update(const void *data, size_t size)
{
    return EVP_DigestUpdate(m_context, data, size) == 1;
}

bool Md5::final(unsigned char *digest)
{
    unsigned int written = 0;
    return EVP_DigestFinal_ex(m_context, digest, &written) == 1 && written == length;
}

QString Md5::hexDigest()
{
    unsigned char digest[length];
    return final(digest) ? FileHash::hexString(digest, length) : QString();
}

QString Md5::of(const char *data, size_t size)
{
    unsigned char digest[EVP_MAX_MD_SIZE];
    unsigned int written = 0;
    if (EVP_Digest(data, size, digest, &written, md5Algorithm(), nullptr) != 1)
        return QString();
    return FileHash::hexString(digest, written);
}
