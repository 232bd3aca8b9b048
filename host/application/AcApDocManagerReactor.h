#pragma once

#include "database/AcRxObject.h"
#include "platform/PlatformTypes.h"

class AcApDocument;

/// Told of what becomes of documents once it is added to the document manager, on the thread that
/// does it. All operations do nothing unless overridden. A reactor may take itself or others away
/// while it is told, open and close documents and change the current one; those behind it are then
/// not told of what is no longer so. It must not outlive its registration.
class AcApDocManagerReactor : public AcRxObject {
    ACRX_DECLARE_MEMBERS(AcApDocManagerReactor);

public:
    ~AcApDocManagerReactor() override;

    /// A document exists and is not among the open ones yet.
    virtual void documentCreateStarted(AcApDocument* document);
    /// It is among the open ones and not current yet.
    virtual void documentCreated(AcApDocument* document);
    /// It is about to be closed; it and its drawing are whole.
    virtual void documentToBeDestroyed(AcApDocument* document);
    /// It is gone; the text is what its file name was, empty for a new drawing. When it was the
    /// current document, none is current now: the next one is entered after this.
    virtual void documentDestroyed(const ACHAR* fileName);
    /// It is current now, and its database is the working one; nullptr when none is open any more.
    virtual void documentBecameCurrent(AcApDocument* document);
    /// It will come to the front.
    virtual void documentToBeActivated(AcApDocument* document);
    /// It will leave the front to another; not told of a document that is closed.
    virtual void documentToBeDeactivated(AcApDocument* document);
    /// It is in front.
    virtual void documentActivated(AcApDocument* document);
};
