#include "snippets.h"

#include <tavex/SMetaDateTime>
#include <tavex/SMetaInt32>
#include <tavex/SMetaKind>
#include <tavex/SMetadatable>

using namespace Quorvex;

//! [classes]
class Picture : public SMetadatable
{
};

class TakenAt : public SMetaKind<TakenAt, SMetaDateTime>
{
public:
    using SMetaKind::SMetaKind;
};

class Width : public SMetaKind<Width, SMetaInt32>
{
public:
    using SMetaKind::SMetaKind;
};
//! [classes]

void metadata(QTextStream &out)
{
    //! [use]
    Picture picture;
    picture.setMetadata(std::make_unique<Width>(300)); // The picture owns it now.
    TakenAt time(QDateTime(QDate(2026, 5, 17), QTime(9, 30)));
    picture.setMetadata(&time, false); // The picture owns a clone.

    const auto *value = picture.metadata<TakenAt>();
    out << value->displayName() << ": " << value->toString(QStringLiteral("{iso}")) << '\n';

    // Leaves out what is not to be saved: here the time, whose flags are Volatile.
    Picture saved;
    saved.copyMetadata(picture.metadataList(), MetadataFlags::KillOnSave);
    out << picture.metadataCount() << " values, saved " << saved.metadataCount() << ": "
        << saved.metadata<Width>()->value() << '\n';
    //! [use]
}
