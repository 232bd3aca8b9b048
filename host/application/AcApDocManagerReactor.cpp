#include "application/AcApDocManagerReactor.h"

ACRX_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject, nullptr)

AcApDocManagerReactor::~AcApDocManagerReactor() = default;

void AcApDocManagerReactor::documentCreateStarted(AcApDocument* /*document*/) {}

void AcApDocManagerReactor::documentCreated(AcApDocument* /*document*/) {}

void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument* /*document*/) {}

void AcApDocManagerReactor::documentDestroyed(const ACHAR* /*fileName*/) {}

void AcApDocManagerReactor::documentBecameCurrent(AcApDocument* /*document*/) {}

void AcApDocManagerReactor::documentToBeActivated(AcApDocument* /*document*/) {}

void AcApDocManagerReactor::documentToBeDeactivated(AcApDocument* /*document*/) {}

void AcApDocManagerReactor::documentActivated(AcApDocument* /*document*/) {}
