#pragma once

namespace Qtilities::Core {

// Makes objects of one class behind the interface of their base.
template <typename Base>
class FactoryInterface
{
public:
    virtual ~FactoryInterface() = default;

    // A new object, owned by the caller.
    virtual Base *createInstance() const = 0;
};

template <typename Base, typename Derived>
class FactoryItem : public FactoryInterface<Base>
{
public:
    Base *createInstance() const override { return new Derived(nullptr); }
};

} // namespace Qtilities::Core
