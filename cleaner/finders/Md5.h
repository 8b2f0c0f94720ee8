#pragma once

#include <QByteArray>
#include <QString>
#include <cstddef>

typedef struct evp_md_ctx_st EVP_MD_CTX;

// MD5 through OpenSSL: a running digest, or the digest of bytes in memory.
class Md5 {
public:
    static constexpr size_t length = 16;
    Md5();
    ~Md5();
    Md5(const Md5 &) = delete;
    Md5 &operator=(const Md5 &) = delete;

    bool init();
    bool update(const void *data, size_t size);
    bool final(unsigned char *digest);
    // final, as lower-case hexadecimal.
    QString hexDigest();

    // The digest of bytes held in memory, as lower-case hexadecimal.
    static QString of(const char *data, size_t size);

private:
    EVP_MD_CTX *m_context;
};
