// ObjectRegistry is the table of the component's classes: for each object code, the
// factory of its navigator ("UI" + digits) and of its data object ("UIO" + digits).
// The host's OrvoObjectsService consults it to make UI0201500 or UIO0201500 by code.
// Each subsystem adds its classes with a registration function called once at start
// (a static library drops objects that register themselves from static initialisers,
// so nothing here relies on them). Codes are looked up by their first eight
// characters, so a stored reference finds the class of its kind.
#pragma once

#include "frame/business_object.h"
#include "frame/orvo_object_ui.h"
#include "frame/orvo_object_uio.h"

#include <QHash>
#include <QStringList>
#include <functional>

namespace orvo {

class ObjectRegistry {
public:
    // A factory receives the code it is asked for (a kind such as "O0201504" for a
    // class that serves several).
    using NavigatorFactory = std::function<OrvoObjectUIPtr(const QString& code)>;
    using DataObjectFactory = std::function<OrvoObjectUIOPtr(const QString& code)>;

    // The registry of this component.
    static ObjectRegistry& Component();

    void RegisterNavigator(const QString& code, NavigatorFactory factory);
    void RegisterDataObject(const QString& code, DataObjectFactory factory);
    void Clear();

    bool HasNavigator(const QString& codeOrOidr) const;
    bool HasDataObject(const QString& codeOrOidr) const;
    QStringList NavigatorCodes() const;
    QStringList DataObjectCodes() const;

    // A new navigator or data object of the kind; null for an unknown one.
    OrvoObjectUIPtr MakeNavigator(const QString& codeOrOidr) const;
    OrvoObjectUIOPtr MakeDataObject(const QString& codeOrOidr) const;

    // What OrvoObjectsService.GetObjectUI gives: the navigator with the business object
    // set and the services handed over, or null for an unknown code.
    OrvoObjectUIPtr GetObjectUI(const QString& code, const BusinessObjectPtr& bo,
                                const OrvoServicesPtr& services) const;
    // What OrvoObjectsService.GetObjectUIO gives: through the kind's navigator, a data
    // object read for the argument (blank for a bare code); null for an unknown kind,
    // a kind without a data object, or a read that fails.
    OrvoObjectUIOPtr GetObjectUIO(const QString& codeOrOidr, const BusinessObjectPtr& bo,
                                  const OrvoServicesPtr& services) const;

    // The first eight characters: the kind of a code or reference.
    static QString KindOf(const QString& codeOrOidr) { return codeOrOidr.left(8); }

private:
    QHash<QString, NavigatorFactory> navigators_;
    QHash<QString, DataObjectFactory> dataObjects_;
};

} // namespace orvo
