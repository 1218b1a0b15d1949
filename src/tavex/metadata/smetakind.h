#pragma once

#include <tavex/core/sclassname.h>
#include <tavex/metadata/imetadata.h>

#include <concepts>
#include <typeinfo>

namespace Quorvex {

/// Makes the class \a Own a kind of metadata, with an id of its own, on the base of \a Base: one of
/// the library's classes, or of an application's.
///
///     class Width : public SMetaKind<Width, SMetaInt32>
///     {
///     public:
///         using SMetaKind::SMetaKind;
///     };
///
/// Derived from SMetaInt32 without it, a Width would have the id of SMetaInt32 and take its place
/// in a container, and its clones would be no Width.
template <typename Own, std::derived_from<Interfaces::IMetadata> Base>
class SMetaKind : public Base
{
public:
    using Base::Base;

    /// A copy, which is an \a Own.
    [[nodiscard]] SMetaKind *clone() const override
    {
        return new Own(static_cast<const Own &>(*this));
    }
    /// The name of \a Own without namespace.
    [[nodiscard]] QString name() override { return SClassName::name(typeid(Own)); }
    using Interfaces::IMetadata::name;
    /// The number of \a Own, as uniqueId() gives it.
    [[nodiscard]] quint64 id() const override { return uniqueId(); }
    /// The id() of every \a Own.
    [[nodiscard]] static quint64 uniqueId() { return typeid(Own).hash_code(); }
};

} // namespace Quorvex
