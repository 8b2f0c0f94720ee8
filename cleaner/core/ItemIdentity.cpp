#include "cleaner/core/ItemIdentity.h"

ItemIdentity::Kind ItemIdentity::kindOf(mode_t mode)
{
    if (S_ISREG(mode))
        return Kind::File;
    if (S_ISDIR(mode))
        return Kind::Folder;
    if (S_ISLNK(mode))
        return Kind::Link;
    return Kind::Other;
}

ItemIdentity ItemIdentity::fromStat(const struct stat &st)
{
    return {kindOf(st.st_mode), quint64(st.st_dev), quint64(st.st_ino)};
}

bool ItemIdentity::matches(const struct stat &st) const
{
    return isKnown() && kind == kindOf(st.st_mode) && device == quint64(st.st_dev) &&
           inode == quint64(st.st_ino);
}
