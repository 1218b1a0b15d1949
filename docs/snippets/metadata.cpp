#include "snippets.h"

#include <tavex/SMetaDateTime>
#include <tavex/SMetaInt32>
#include <tavex/SMetadatable>

using namespace Quorvex;

//! [classes]
class Picture : public SMetadatable
{
};

class TakenAt : public SMetaDateTime
{
public:
    using SMetaDateTime::SMetaDateTime;
    [[nodiscard]] TakenAt *clone() const override { return new TakenAt(*this); }
    [[nodiscard]] quint64 id() const override { return uniqueId(); }
    [[nodiscard]] static quint64 uniqueId() { return typeid(TakenAt).hash_code(); }
};
//! [classes]

void metadata(QTextStream &out)
{
    //! [use]
    Picture picture;
    picture.setMetadata(new SMetaInt32(300), true); // The picture owns it now.
    TakenAt time(QDateTime(QDate(2026, 5, 17), QTime(9, 30)));
    picture.setMetadata(&time, false); // The picture owns a clone.

    auto *value = picture.metadata(TakenAt::uniqueId());
    out << value->displayName() << ": " << value->toString(QStringLiteral("{iso}")) << '\n';

    // Leaves out what is not to be saved: here the time, whose flags are Volatile.
    Picture saved;
    saved.copyMetadata(picture.metadataList(), MetadataFlags::KillOnSave);
    out << picture.metadataCount() << " values, saved " << saved.metadataCount() << ": "
        << saved.metadata(SMetaInt32::uniqueId())->toString() << '\n';
    //! [use]
}
