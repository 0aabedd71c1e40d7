-- The pharmacy's database on SQL Server 2012 or later, the same tables as the embedded database's. Texts are NVARCHAR, so
-- that no code page takes a character away. Keys that the database gives are IDENTITY; money is whole won.
-- docs/server.md tells how the database, its collation and its user are made.

-- Orders

CREATE TABLE t_ChubangJun (
    CBJ_PK INT IDENTITY(1,1) PRIMARY KEY,
    DTR_PK INT NOT NULL,
    Patient_PK INT NOT NULL DEFAULT 0,
    Patient_Name NVARCHAR(50),
    Patient_Age SMALLINT,
    Patient_Sex BIT,
    Patient_Jumin NVARCHAR(20),
    Patient_Email NVARCHAR(100),
    CBJ_IsCanceled BIT NOT NULL DEFAULT 0,
    CBJ_IsPaid BIT NOT NULL DEFAULT 0,
    CBJ_JobList_PK INT,
    CBJ_TJML_PK INT,
    CBJ_TJAL_Slot NVARCHAR(64),
    CBJ_JojeCost INT NOT NULL DEFAULT 0,
    CBJ_DrugCost INT NOT NULL DEFAULT 0,
    CBJ_TJMLCost INT NOT NULL DEFAULT 0,
    CBJ_TJALCost INT NOT NULL DEFAULT 0,
    CBJ_PouchCost INT NOT NULL DEFAULT 0,
    CBJ_BoxCost INT NOT NULL DEFAULT 0,
    CBJ_FormCost INT NOT NULL DEFAULT 0,
    CBJ_BesongCost INT NOT NULL DEFAULT 0,
    CBJ_VATCost INT NOT NULL DEFAULT 0,
    CBJ_ElseCost INT NOT NULL DEFAULT 0,
    CBJ_UserCost INT NOT NULL DEFAULT 0,
    CBJ_UserCostNoVAT INT NOT NULL DEFAULT 0,
    CBJ_UserCostNote NVARCHAR(MAX),
    CBJ_UserCostNoteNoVAT NVARCHAR(MAX),
    CBJ_Chubsu SMALLINT,
    CBJ_PouchAmount REAL,
    CBJ_PouchTotal SMALLINT,
    CBJ_DayTuyak REAL,
    CBJ_Tuyakilsu SMALLINT,
    CBJ_BesongMethod SMALLINT,
    CBJ_PayMethod SMALLINT,
    CBJ_Send_Name NVARCHAR(50),
    CBJ_Send_Zip NVARCHAR(10),
    CBJ_Send_Address NVARCHAR(200),
    CBJ_Send_Tel NVARCHAR(20),
    CBJ_Send_Cell NVARCHAR(20),
    CBJ_Send_Hospital NVARCHAR(100),
    CBJ_Reci_Zip NVARCHAR(10),
    CBJ_Reci_Address NVARCHAR(200),
    CBJ_Reci_Tel NVARCHAR(20),
    CBJ_Reci_Cell NVARCHAR(20),
    CBJ_Reci_Date DATETIME,
    CBJ_BesongMsg NVARCHAR(MAX),
    CBJ_Msg NVARCHAR(MAX),
    CBJ_RegDate DATETIME,
    CBJ_State SMALLINT NOT NULL DEFAULT 0,
    CBJ_UserChk1 INT DEFAULT 0,
    CBJ_UserChk2 INT DEFAULT 0,
    CBJ_UserMemo1 NVARCHAR(MAX),
    CBJ_UserMemo2 NVARCHAR(MAX),
    CBJ_JojeCompounder NVARCHAR(50),
    CBJ_ChubangName NVARCHAR(100)
);
-- Every search asks for a doctor's orders, cancelled or not, the newest first.
CREATE INDEX ix_ChubangJun_Doctor ON t_ChubangJun (DTR_PK, CBJ_IsCanceled, CBJ_RegDate DESC);
CREATE INDEX ix_ChubangJun_Deposit ON t_ChubangJun (DTR_PK, CBJ_PayMethod, CBJ_IsCanceled, CBJ_RegDate);

CREATE TABLE t_CBJDetail (
    DET_PK INT IDENTITY(1,1) PRIMARY KEY,
    CBJ_PK INT NOT NULL,
    DGL_PK INT NOT NULL,
    DGL_CallSign NVARCHAR(50),
    DET_Weight REAL,
    DET_Danga REAL,
    DET_Money SMALLINT,
    DET_Note NVARCHAR(MAX),
    DET_Order SMALLINT
);
CREATE INDEX ix_CBJDetail_Order ON t_CBJDetail (CBJ_PK, DET_Order);

CREATE TABLE t_CBJcostDetail (
    CBJ_PK INT PRIMARY KEY,
    CCD_JojeCost NVARCHAR(MAX),
    CCD_DrugCost NVARCHAR(MAX),
    CCD_TJMLcost NVARCHAR(MAX),
    CCD_TJALCost NVARCHAR(MAX),
    CCD_PouchCost NVARCHAR(MAX),
    CCD_BoxCost NVARCHAR(MAX),
    CCD_FormCost NVARCHAR(MAX),
    CCD_BesongCost NVARCHAR(MAX),
    CCD_VATCost NVARCHAR(MAX),
    CCD_ElseCost NVARCHAR(MAX)
);

CREATE TABLE t_EatGuide (
    CBJ_PK INT PRIMARY KEY,
    BogYak NVARCHAR(MAX),
    HospName NVARCHAR(100),
    PhoneNo NVARCHAR(20)
);

-- Doctors and their money

CREATE TABLE t_Stock (
    STK_PK INT IDENTITY(1,1) PRIMARY KEY,
    DTR_PK INT NOT NULL,
    CBJ_PK INT NOT NULL DEFAULT 0,
    CBJ_IsCanceled BIT NOT NULL DEFAULT 0,
    STK_Money INT NOT NULL,
    STK_Method SMALLINT NOT NULL DEFAULT 0,
    STK_Date DATETIME,
    STK_Note NVARCHAR(MAX)
);
CREATE INDEX ix_Stock_Doctor ON t_Stock (DTR_PK, STK_Date DESC);
CREATE INDEX ix_Stock_Order ON t_Stock (CBJ_PK);

CREATE TABLE t_Doctor (
    DTR_PK INT IDENTITY(1,1) PRIMARY KEY,
    DTR_Name NVARCHAR(50),
    DTR_LicenseNo NVARCHAR(20),
    DTR_ID NVARCHAR(30) NOT NULL,
    DTR_PWD NVARCHAR(30) NOT NULL,
    DTR_Discount REAL NOT NULL DEFAULT 0,
    DTR_Mileage REAL NOT NULL DEFAULT 0,
    DTR_Cell NVARCHAR(20),
    DTR_Email NVARCHAR(100),
    DTR_HosTel NVARCHAR(20),
    DTR_HosName NVARCHAR(100),
    DTR_HosZip NVARCHAR(10),
    DTR_Address NVARCHAR(200),
    DTR_RegDate DATETIME,
    DTR_VIP BIT NOT NULL DEFAULT 0,
    DTR_IsUsePouch BIT NOT NULL DEFAULT 0,
    DTR_IsUseBox INT NOT NULL DEFAULT 0,
    DTR_IsUseForm BIT NOT NULL DEFAULT 0,
    DTR_ValidPay NVARCHAR(3) NOT NULL DEFAULT '000',
    DTR_Refer NVARCHAR(MAX)
);
CREATE UNIQUE INDEX ix_Doctor_ID ON t_Doctor (DTR_ID);

-- What the pharmacy offers

CREATE TABLE t_JobList (
    JL_PK INT IDENTITY(1,1) PRIMARY KEY,
    JL_Prompt NVARCHAR(50),
    JL_Message NVARCHAR(MAX),
    JL_DrugVisible BIT NOT NULL,
    JL_TangJunVisible BIT NOT NULL,
    JL_Order SMALLINT NOT NULL,
    JL_IsValid BIT NOT NULL DEFAULT 1
);

CREATE TABLE t_TangJunMethodList (
    TJML_PK INT IDENTITY(1,1) PRIMARY KEY,
    TJML_Prompt NVARCHAR(50),
    TJML_Message NVARCHAR(MAX),
    TJML_Order SMALLINT NOT NULL,
    TJML_IsValid BIT NOT NULL DEFAULT 1
);

CREATE TABLE t_TangJunAddList (
    TJAL_PK INT IDENTITY(1,1) PRIMARY KEY,
    TJAL_Prompt NVARCHAR(50),
    TJAL_Message NVARCHAR(MAX),
    TJAL_Slot SMALLINT NOT NULL,
    TJAL_Type SMALLINT NOT NULL,
    TJAL_Order SMALLINT NOT NULL,
    TJAL_IsValid BIT NOT NULL DEFAULT 1
);
CREATE UNIQUE INDEX ix_TangJunAddList_Slot ON t_TangJunAddList (TJAL_Slot);

CREATE TABLE t_DrugList (
    DGL_PK INT IDENTITY(1,1) PRIMARY KEY,
    DGL_CallSign NVARCHAR(50) NOT NULL,
    DGL_Internal NVARCHAR(100) NOT NULL,
    DGL_Default BIT NOT NULL DEFAULT 0,
    DGL_IsValid BIT NOT NULL DEFAULT 1
);
-- The herb search reads the valid herbs in this order.
CREATE INDEX ix_DrugList_Search ON t_DrugList (DGL_Default DESC, DGL_CallSign);

CREATE TABLE t_DrugDanga (
    DGL_PK INT NOT NULL,
    DGD_Danga REAL NOT NULL,
    DGD_StartDate NVARCHAR(10) NOT NULL,
    DGD_EndDate NVARCHAR(10) NOT NULL,
    PRIMARY KEY (DGL_PK, DGD_StartDate)
);

CREATE TABLE t_UserChubang (
    UCB_PK INT IDENTITY(1,1) PRIMARY KEY,
    DTR_PK INT NOT NULL,
    UCB_Name NVARCHAR(100),
    UCB_Date DATETIME,
    UCB_Note NVARCHAR(MAX)
);
CREATE INDEX ix_UserChubang_Doctor ON t_UserChubang (DTR_PK, UCB_Name);

CREATE TABLE t_UserDetail (
    UDET_PK INT IDENTITY(1,1) PRIMARY KEY,
    UCB_PK INT NOT NULL,
    DGL_CallSign NVARCHAR(50),
    DGL_PK INT NOT NULL,
    UDET_Weight REAL,
    UDET_Order SMALLINT,
    UDET_Note NVARCHAR(MAX)
);
CREATE INDEX ix_UserDetail_Chubang ON t_UserDetail (UCB_PK, UDET_Order);

-- What the pharmacy tells

CREATE TABLE t_PxGongJi (
    PGJ_PK INT IDENTITY(1,1) PRIMARY KEY,
    PGJ_Type SMALLINT NOT NULL,
    PGJ_WriteDate DATETIME,
    PGJ_Title NVARCHAR(200),
    PGJ_ContType BIT NOT NULL,
    PGJ_URLCont NVARCHAR(200),
    PGJ_RTFCont NVARCHAR(MAX)
);
CREATE INDEX ix_PxGongJi_List ON t_PxGongJi (PGJ_Type, PGJ_WriteDate DESC);

-- Read by position: the order of these columns must stay.
CREATE TABLE t_PxInfo (
    PIF_PK INT IDENTITY(1,1) PRIMARY KEY,
    PIF_RegDate DATETIME,
    PIF_Name NVARCHAR(100),
    PIF_Pharmacist NVARCHAR(50),
    PIF_Address NVARCHAR(200),
    PIF_Tel NVARCHAR(20),
    PIF_Cell NVARCHAR(20),
    PIF_ServerIP NVARCHAR(50),
    PIF_CostURL NVARCHAR(200),
    PIF_CostUpdateURL NVARCHAR(200),
    PIF_FindZipURL NVARCHAR(200)
);
