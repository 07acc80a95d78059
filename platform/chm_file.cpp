#include "platform/chm_file.h"

#include <QFile>
#include <QtEndian>

#include <bit>

#include <chm_lib.h>

namespace merov::platform
{
namespace
{

// The largest object that is unpacked, bytes. A greater length stands in damaged files alone.
constexpr LONGUINT64 LargestObject = 64 * 1024 * 1024;

// The largest number of objects. Pages of a damaged directory may lead in a circle.
constexpr int MostObjects = 100'000;

/// A whole number of the file, lowest byte first; nothing where it would stand behind the end.
template <class Number>
std::optional<Number> NumberAt(const QByteArray& bytes, qint64 place)
{
    if (place < 0 || place > bytes.size() - static_cast<qint64>(sizeof(Number))) return std::nullopt;
    return qFromLittleEndian<Number>(bytes.constData() + place);
}

// The objects by which the others are unpacked. They are never packed themselves.
constexpr char ControlData[] = "::DataSpace/Storage/MSCompressed/ControlData";
constexpr char ResetTable[] = "::DataSpace/Storage/MSCompressed/Transform/"
                              "{7FC28940-9D31-11D0-9B27-00A0C91E9C7C}/InstanceData/ResetTable";

/// A whole number of the directory, 7 bits in each byte, the highest first; all but the last byte have
/// their highest bit set. Moves `place` behind it.
qint64 PackedNumber(const QByteArray& bytes, qsizetype& place)
{
    qint64 number = 0;
    for (int digits = 0; digits < 8 && place < bytes.size(); digits++) {
        const auto byte = static_cast<quint8>(bytes[place++]);
        number = (number << 7) + (byte & 0x7f);
        if (byte < 0x80) return number;
    }
    return -1;
}

/// The bytes of an object that isn't packed; empty where there is none. Behind its name the directory
/// has how it is packed, its place and its length. Places count from the one in bytes 88 to 95.
QByteArray PlainObject(const QByteArray& bytes, const char* name)
{
    qsizetype place = bytes.indexOf(name);
    if (place < 0) return {};
    place += static_cast<qsizetype>(qstrlen(name));
    const qint64 packed = PackedNumber(bytes, place);
    const qint64 start = PackedNumber(bytes, place);
    const qint64 length = PackedNumber(bytes, place);
    const qint64 origin = NumberAt<qint64>(bytes, 88).value_or(-1);
    if (packed != 0 || start < 0 || length < 0 || origin < 0 || origin > bytes.size()) return {};
    return bytes.mid(origin + start, length);
}

/// True when the file is at least as long as it tells. The first header section, whose place stands in
/// bytes 56 to 63, has the length in its bytes 8 to 15.
bool IsComplete(const QByteArray& bytes)
{
    const qint64 section = NumberAt<qint64>(bytes, 56).value_or(-1);
    if (!bytes.startsWith("ITSF") || section < 0 || section > bytes.size()) return false;
    const auto length = NumberAt<qint64>(bytes, section + 8);
    return length && bytes.size() >= *length;
}

/// True when the figures by which objects are unpacked make sense. The library divides by them and takes
/// a window of that size for granted.
bool CanUnpack(const QByteArray& bytes)
{
    constexpr quint64 blockSize = 0x8000; // in which version 2 counts
    const QByteArray control = PlainObject(bytes, ControlData);
    const QByteArray table = PlainObject(bytes, ResetTable);
    const quint64 unit = NumberAt<quint32>(control, 8) == 2U ? blockSize : 1;
    const quint64 interval = NumberAt<quint32>(control, 12).value_or(0) * unit;
    const quint64 window = NumberAt<quint32>(control, 16).value_or(0) * unit;
    const quint64 windowsPerReset = NumberAt<quint32>(control, 20).value_or(0);
    const quint64 block = NumberAt<quint64>(table, 32).value_or(0);

    if (!std::has_single_bit(window) || window < blockSize || window > 64 * blockSize) return false;
    const quint64 blocksPerReset = interval / (window / 2) * windowsPerReset;
    return blocksPerReset > 0 && blocksPerReset <= 0xffff && block > 0 && block <= window;
}

/// True when the library can open the file without harm.
bool IsSound(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) return false;
    const QByteArray bytes = file.readAll();
    return IsComplete(bytes) && CanUnpack(bytes);
}

/// Unpacks one object of the archive.
std::optional<QByteArray> Unpack(chmFile* file, chmUnitInfo& unit)
{
    if (unit.length > LargestObject) return std::nullopt;
    QByteArray bytes(static_cast<qsizetype>(unit.length), '\0');
    const auto length = static_cast<LONGINT64>(unit.length);
    if (length == 0) return bytes;
    auto* target = reinterpret_cast<unsigned char*>(bytes.data());
    if (chm_retrieve_object(file, &unit, target, 0, length) != length) return std::nullopt;
    return bytes;
}

/// Counts the objects and stops at the first that can't be unpacked.
int TryObject(chmFile* file, chmUnitInfo* unit, void* count)
{
    int& objects = *static_cast<int*>(count);
    if (++objects > MostObjects || !Unpack(file, *unit)) return CHM_ENUMERATOR_FAILURE;
    return CHM_ENUMERATOR_CONTINUE;
}

/// A text of the records, up to its first NUL.
QString RecordText(const QByteArray& data)
{
    QString text = QString::fromUtf8(data.constData());
    return text.startsWith('/') ? text.mid(1) : text;
}

} // namespace

std::unique_ptr<ChmFile> ChmFile::Open(const QString& path)
{
    if (!IsSound(path)) return nullptr;
    chmFile* file = chm_open(QFile::encodeName(path).constData());
    if (file == nullptr) return nullptr;
    std::unique_ptr<ChmFile> manual(new ChmFile(file));
    if (!manual->ReadsWhole()) return nullptr;
    manual->ReadSystemRecords();
    if (!manual->Object(manual->DefaultTopic())) return nullptr;
    return manual;
}

ChmFile::~ChmFile()
{
    chm_close(file_);
}

std::optional<QByteArray> ChmFile::Object(const QString& path) const
{
    QByteArray name = path.toUtf8();
    if (!name.startsWith('/')) name.prepend('/');
    chmUnitInfo unit;
    if (name.size() > CHM_MAX_PATHLEN || chm_resolve_object(file_, name.constData(), &unit) != CHM_RESOLVE_SUCCESS)
        return std::nullopt;
    return Unpack(file_, unit);
}

bool ChmFile::ReadsWhole() const
{
    int objects = 0;
    return chm_enumerate(file_, CHM_ENUMERATE_NORMAL | CHM_ENUMERATE_FILES, TryObject, &objects) == 1 && objects > 0;
}

/// The object "#SYSTEM": a version of 4 bytes, then records of a code and a length, 2 bytes each, and
/// data. Code 0 is the table of contents, 2 the default topic, 3 the title.
void ChmFile::ReadSystemRecords()
{
    const QByteArray records = Object(QStringLiteral("#SYSTEM")).value_or(QByteArray());
    for (qint64 place = 4;;) {
        const auto code = NumberAt<quint16>(records, place);
        const auto length = NumberAt<quint16>(records, place + 2);
        if (!code || !length) return;
        const QString text = RecordText(records.mid(place + 4, *length));
        if (*code == 0) contentsFile_ = text;
        if (*code == 2 && !text.isEmpty()) defaultTopic_ = text;
        if (*code == 3) title_ = text;
        place += 4 + *length;
    }
}

} // namespace merov::platform
