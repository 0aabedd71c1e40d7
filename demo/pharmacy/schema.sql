-- The pharmacy's database. Keys that the database gives are given once and never again; money is whole won,
-- dates are text: "yyyy-mm-dd" or "yyyy-mm-dd hh:mm:ss".

-- Orders

CREATE TABLE t_ChubangJun (
    CBJ_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    DTR_PK INTEGER NOT NULL,
    Patient_PK INTEGER NOT NULL DEFAULT 0,
    Patient_Name VARCHAR(50),
    Patient_Age SMALLINT,
    Patient_Sex BIT,
    Patient_Jumin VARCHAR(20),
    Patient_Email VARCHAR(100),
    CBJ_IsCanceled BIT NOT NULL DEFAULT 0,
    CBJ_IsPaid BIT NOT NULL DEFAULT 0,
    CBJ_JobList_PK INTEGER,
    CBJ_TJML_PK INTEGER,
    CBJ_TJAL_Slot VARCHAR(64),
    CBJ_JojeCost INTEGER NOT NULL DEFAULT 0,
    CBJ_DrugCost INTEGER NOT NULL DEFAULT 0,
    CBJ_TJMLCost INTEGER NOT NULL DEFAULT 0,
    CBJ_TJALCost INTEGER NOT NULL DEFAULT 0,
    CBJ_PouchCost INTEGER NOT NULL DEFAULT 0,
    CBJ_BoxCost INTEGER NOT NULL DEFAULT 0,
    CBJ_FormCost INTEGER NOT NULL DEFAULT 0,
    CBJ_BesongCost INTEGER NOT NULL DEFAULT 0,
    CBJ_VATCost INTEGER NOT NULL DEFAULT 0,
    CBJ_ElseCost INTEGER NOT NULL DEFAULT 0,
    CBJ_UserCost INTEGER NOT NULL DEFAULT 0,
    CBJ_UserCostNoVAT INTEGER NOT NULL DEFAULT 0,
    CBJ_UserCostNote TEXT,
    CBJ_UserCostNoteNoVAT TEXT,
    CBJ_Chubsu SMALLINT,
    CBJ_PouchAmount REAL,
    CBJ_PouchTotal SMALLINT,
    CBJ_DayTuyak REAL,
    CBJ_Tuyakilsu SMALLINT,
    CBJ_BesongMethod SMALLINT,
    CBJ_PayMethod SMALLINT,
    CBJ_Send_Name VARCHAR(50),
    CBJ_Send_Zip VARCHAR(10),
    CBJ_Send_Address VARCHAR(200),
    CBJ_Send_Tel VARCHAR(20),
    CBJ_Send_Cell VARCHAR(20),
    CBJ_Send_Hospital VARCHAR(100),
    CBJ_Reci_Zip VARCHAR(10),
    CBJ_Reci_Address VARCHAR(200),
    CBJ_Reci_Tel VARCHAR(20),
    CBJ_Reci_Cell VARCHAR(20),
    CBJ_Reci_Date DATETIME,
    CBJ_BesongMsg TEXT,
    CBJ_Msg TEXT,
    CBJ_RegDate DATETIME,
    CBJ_State SMALLINT NOT NULL DEFAULT 0,
    CBJ_UserChk1 INTEGER DEFAULT 0,
    CBJ_UserChk2 INTEGER DEFAULT 0,
    CBJ_UserMemo1 TEXT,
    CBJ_UserMemo2 TEXT,
    CBJ_JojeCompounder VARCHAR(50),
    CBJ_ChubangName VARCHAR(100)
);
-- Every search asks for a doctor's orders, cancelled or not, the newest first.
CREATE INDEX ix_ChubangJun_Doctor ON t_ChubangJun (DTR_PK, CBJ_IsCanceled, CBJ_RegDate DESC);
CREATE INDEX ix_ChubangJun_Deposit ON t_ChubangJun (DTR_PK, CBJ_PayMethod, CBJ_IsCanceled, CBJ_RegDate);

CREATE TABLE t_CBJDetail (
    DET_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    CBJ_PK INTEGER NOT NULL,
    DGL_PK INTEGER NOT NULL,
    DGL_CallSign VARCHAR(50),
    DET_Weight REAL,
    DET_Danga REAL,
    DET_Money SMALLINT,
    DET_Note TEXT,
    DET_Order SMALLINT
);
CREATE INDEX ix_CBJDetail_Order ON t_CBJDetail (CBJ_PK, DET_Order);

CREATE TABLE t_CBJcostDetail (
    CBJ_PK INTEGER PRIMARY KEY,
    CCD_JojeCost TEXT,
    CCD_DrugCost TEXT,
    CCD_TJMLcost TEXT,
    CCD_TJALCost TEXT,
    CCD_PouchCost TEXT,
    CCD_BoxCost TEXT,
    CCD_FormCost TEXT,
    CCD_BesongCost TEXT,
    CCD_VATCost TEXT,
    CCD_ElseCost TEXT
);

CREATE TABLE t_EatGuide (
    CBJ_PK INTEGER PRIMARY KEY,
    BogYak TEXT,
    HospName VARCHAR(100),
    PhoneNo VARCHAR(20)
);

-- Doctors and their money

CREATE TABLE t_Stock (
    STK_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    DTR_PK INTEGER NOT NULL,
    CBJ_PK INTEGER NOT NULL DEFAULT 0,
    CBJ_IsCanceled BIT NOT NULL DEFAULT 0,
    STK_Money INTEGER NOT NULL,
    STK_Method SMALLINT NOT NULL DEFAULT 0,
    STK_Date DATETIME,
    STK_Note TEXT
);
CREATE INDEX ix_Stock_Doctor ON t_Stock (DTR_PK, STK_Date DESC);
CREATE INDEX ix_Stock_Order ON t_Stock (CBJ_PK);

CREATE TABLE t_Doctor (
    DTR_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    DTR_Name VARCHAR(50),
    DTR_LicenseNo VARCHAR(20),
    DTR_ID VARCHAR(30) NOT NULL,
    DTR_PWD VARCHAR(30) NOT NULL,
    DTR_Discount REAL NOT NULL DEFAULT 0,
    DTR_Mileage REAL NOT NULL DEFAULT 0,
    DTR_Cell VARCHAR(20),
    DTR_Email VARCHAR(100),
    DTR_HosTel VARCHAR(20),
    DTR_HosName VARCHAR(100),
    DTR_HosZip VARCHAR(10),
    DTR_Address VARCHAR(200),
    DTR_RegDate DATETIME,
    DTR_VIP BIT NOT NULL DEFAULT 0,
    DTR_IsUsePouch BIT NOT NULL DEFAULT 0,
    DTR_IsUseBox INTEGER NOT NULL DEFAULT 0,
    DTR_IsUseForm BIT NOT NULL DEFAULT 0,
    DTR_ValidPay VARCHAR(3) NOT NULL DEFAULT '000',
    DTR_Refer TEXT
);
CREATE UNIQUE INDEX ix_Doctor_ID ON t_Doctor (DTR_ID);

-- What the pharmacy offers

CREATE TABLE t_JobList (
    JL_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    JL_Prompt VARCHAR(50),
    JL_Message TEXT,
    JL_DrugVisible BIT NOT NULL,
    JL_TangJunVisible BIT NOT NULL,
    JL_Order SMALLINT NOT NULL,
    JL_IsValid BIT NOT NULL DEFAULT 1
);

CREATE TABLE t_TangJunMethodList (
    TJML_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    TJML_Prompt VARCHAR(50),
    TJML_Message TEXT,
    TJML_Order SMALLINT NOT NULL,
    TJML_IsValid BIT NOT NULL DEFAULT 1
);

CREATE TABLE t_TangJunAddList (
    TJAL_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    TJAL_Prompt VARCHAR(50),
    TJAL_Message TEXT,
    TJAL_Slot SMALLINT NOT NULL,
    TJAL_Type SMALLINT NOT NULL,
    TJAL_Order SMALLINT NOT NULL,
    TJAL_IsValid BIT NOT NULL DEFAULT 1
);
CREATE UNIQUE INDEX ix_TangJunAddList_Slot ON t_TangJunAddList (TJAL_Slot);

CREATE TABLE t_DrugList (
    DGL_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    DGL_CallSign VARCHAR(50) NOT NULL,
    DGL_Internal VARCHAR(100) NOT NULL,
    DGL_Default BIT NOT NULL DEFAULT 0,
    DGL_IsValid BIT NOT NULL DEFAULT 1
);
-- The herb search reads the valid herbs in this order.
CREATE INDEX ix_DrugList_Search ON t_DrugList (DGL_Default DESC, DGL_CallSign);

CREATE TABLE t_DrugDanga (
    DGL_PK INTEGER NOT NULL,
    DGD_Danga REAL NOT NULL,
    DGD_StartDate VARCHAR(10) NOT NULL,
    DGD_EndDate VARCHAR(10) NOT NULL,
    PRIMARY KEY (DGL_PK, DGD_StartDate)
);

CREATE TABLE t_UserChubang (
    UCB_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    DTR_PK INTEGER NOT NULL,
    UCB_Name VARCHAR(100),
    UCB_Date DATETIME,
    UCB_Note TEXT
);
CREATE INDEX ix_UserChubang_Doctor ON t_UserChubang (DTR_PK, UCB_Name);

CREATE TABLE t_UserDetail (
    UDET_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    UCB_PK INTEGER NOT NULL,
    DGL_CallSign VARCHAR(50),
    DGL_PK INTEGER NOT NULL,
    UDET_Weight REAL,
    UDET_Order SMALLINT,
    UDET_Note TEXT
);
CREATE INDEX ix_UserDetail_Chubang ON t_UserDetail (UCB_PK, UDET_Order);

-- What the pharmacy tells

CREATE TABLE t_PxGongJi (
    PGJ_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    PGJ_Type SMALLINT NOT NULL,
    PGJ_WriteDate DATETIME,
    PGJ_Title VARCHAR(200),
    PGJ_ContType BIT NOT NULL,
    PGJ_URLCont VARCHAR(200),
    PGJ_RTFCont TEXT
);
CREATE INDEX ix_PxGongJi_List ON t_PxGongJi (PGJ_Type, PGJ_WriteDate DESC);

-- Read by position: the order of these columns must stay.
CREATE TABLE t_PxInfo (
    PIF_PK INTEGER PRIMARY KEY AUTOINCREMENT,
    PIF_RegDate DATETIME,
    PIF_Name VARCHAR(100),
    PIF_Pharmacist VARCHAR(50),
    PIF_Address VARCHAR(200),
    PIF_Tel VARCHAR(20),
    PIF_Cell VARCHAR(20),
    PIF_ServerIP VARCHAR(50),
    PIF_CostURL VARCHAR(200),
    PIF_CostUpdateURL VARCHAR(200),
    PIF_FindZipURL VARCHAR(200)
);
