#include <tavex/core/listtype_p.h>
#include <tavex/core/startup_p.h>

#include <mutex>
#include <vector>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace Quorvex::MetaType {
namespace {

using Description = QtPrivate::QMetaTypeInterface;

/// Copies from \a from the functions whose code lies in the library.
void setFunctions(Description &type, const Description &from)
{
    type.equals = from.equals;
    type.lessThan = from.lessThan;
    type.debugStream = from.debugStream;
    type.dataStreamOut = from.dataStreamOut;
    type.dataStreamIn = from.dataStreamIn;
    type.legacyRegisterOp = from.legacyRegisterOp;
}

/// The descriptions that the library has handed out.
class Descriptions
{
public:
    Q_DISABLE_COPY_MOVE(Descriptions)

    Descriptions() = default;

    ~Descriptions()
    {
        for (Description *const type : m_types)
            release(type);
    }

    QMetaType add(const Description &own)
    {
        const std::scoped_lock lock(m_mutex);
        // By its number: the description of QByteArray that lies in Qt Core.
        const Description &bytes = *QMetaType(QMetaType::QByteArray).iface();
        const Description *const known = QMetaType::fromName(own.name).iface();
        if (known && known->copyCtr == bytes.copyCtr && !known->equals) {
            // Left behind when the library was unloaded: put to use again.
            m_types.push_back(const_cast<Description *>(known));
            setFunctions(*m_types.back(), own);
            own.legacyRegisterOp(); // Qt calls it only when it gives the type its number.
        } else {
            m_types.push_back(new Description{own.revision, own.alignment, own.size, own.flags, 0,
                nullptr, qstrdup(own.name), bytes.defaultCtr, bytes.copyCtr, bytes.moveCtr,
                bytes.dtor, own.equals, own.lessThan, own.debugStream, own.dataStreamOut,
                own.dataStreamIn, own.legacyRegisterOp});
        }
        return QMetaType(m_types.back());
    }

private:
    static void release(Description *type)
    {
        const int number = type->typeId.loadRelaxed();
        if (QMetaType::isRegistered(number) && QMetaType(number).iface() == type) {
            setFunctions(*type, Description{});
#ifdef __SANITIZE_ADDRESS__
            __lsan_ignore_object(type); // The program may use it to its end.
#endif
            return;
        }
        delete[] type->name;
        delete type;
    }

    std::mutex m_mutex;
    std::vector<Description *> m_types;
};

} // namespace

QMetaType outliving(QMetaType own)
{
    static constinit Lasting<Descriptions> descriptions;
    return descriptions.get().add(*own.iface());
}

} // namespace Quorvex::MetaType
