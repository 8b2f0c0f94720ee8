#pragma once

#include <QByteArrayList>

// brenlow-cli's Eraser and archives:
//   shred PATH... [--yes]
//   extract ARCHIVE [--password-file FILE] [--to DIR]
class CliEraser {
public:
    static int shred(const QByteArrayList &args);
    static int extract(const QByteArrayList &args);
};
