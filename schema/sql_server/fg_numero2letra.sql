-- dbo.fg_Numero2Letra: an amount in Spanish words, "MIL CIENTO SESENTA PESOS 50/100 M.N.". Created only where there is
-- none: a database may bring its own. Cents are rounded, a tie away from zero. Pesos (or no name) end in "M.N."; any
-- other currency is named as given, in upper case, in the singular for one unit.

IF OBJECT_ID(N'dbo.fg_Numero2Letra') IS NULL
    EXEC(N'
CREATE FUNCTION dbo.fg_Numero2Letra(@importe decimal(19, 4), @moneda nvarchar(max))
RETURNS nvarchar(max)
AS
BEGIN
    IF @importe IS NULL RETURN NULL

    -- Accented capitals by their codes, so that they arrive whole through any code page of a client.
    DECLARE @e nchar(1), @o nchar(1), @u nchar(1)
    SELECT @e = NCHAR(201), @o = NCHAR(211), @u = NCHAR(218)

    -- Each word stands in a field of equal width: 12 for 1 to 29, 9 for the tens, 13 for the hundreds.
    DECLARE @unidades nvarchar(400), @decenas nvarchar(100), @centenas nvarchar(200)
    SET @unidades =
        N''UN          DOS         TRES        CUATRO      CINCO       SEIS        SIETE       OCHO        '' +
        N''NUEVE       DIEZ        ONCE        DOCE        TRECE       CATORCE     QUINCE      '' +
        N''DIECIS'' + @e + N''IS   DIECISIETE  DIECIOCHO   DIECINUEVE  VEINTE      '' +
        N''VEINTI'' + @u + N''N    VEINTID'' + @o + N''S   VEINTITR'' + @e + N''S  VEINTICUATRO'' +
        N''VEINTICINCO VEINTIS'' + @e + N''IS  VEINTISIETE VEINTIOCHO  VEINTINUEVE ''
    SET @decenas =
        N''TREINTA  CUARENTA CINCUENTASESENTA  SETENTA  OCHENTA  NOVENTA  ''
    SET @centenas =
        N''CIENTO       DOSCIENTOS   TRESCIENTOS  CUATROCIENTOSQUINIENTOS   '' +
        N''SEISCIENTOS  SETECIENTOS  OCHOCIENTOS  NOVECIENTOS  ''

    DECLARE @centavos bigint, @entero bigint
    SET @centavos = CAST(ROUND(ABS(@importe), 2) * 100 AS bigint)
    SET @entero = @centavos / 100

    -- The whole part in groups of three digits, from the billions (10^12) down.
    DECLARE @letra nvarchar(max), @divisor bigint, @grupo int, @resto int
    SET @letra = N''''
    SET @divisor = 1000000000000
    WHILE @divisor > 0
    BEGIN
        SET @grupo = (@entero / @divisor) % 1000
        SET @resto = @grupo % 100

        IF @grupo = 100
            SET @letra = @letra + N''CIEN ''
        ELSE IF @grupo > 100
            SET @letra = @letra + RTRIM(SUBSTRING(@centenas, (@grupo / 100 - 1) * 13 + 1, 13)) + N'' ''

        IF @resto >= 30
        BEGIN
            SET @letra = @letra + RTRIM(SUBSTRING(@decenas, (@resto / 10 - 3) * 9 + 1, 9)) + N'' ''
            SET @resto = @resto % 10
            IF @resto > 0 SET @letra = @letra + N''Y ''
        END
        -- One thousand is MIL, never UN MIL.
        IF @resto > 0 AND NOT (@grupo = 1 AND @divisor IN (1000, 1000000000))
            SET @letra = @letra + RTRIM(SUBSTRING(@unidades, (@resto - 1) * 12 + 1, 12)) + N'' ''

        IF @divisor = 1000000000000 AND @grupo > 0
            SET @letra = @letra + CASE WHEN @grupo = 1 THEN N''BILL'' + @o + N''N '' ELSE N''BILLONES '' END
        IF @divisor IN (1000, 1000000000) AND @grupo > 0
            SET @letra = @letra + N''MIL ''
        IF @divisor = 1000000 AND @entero / 1000000 % 1000000 > 0
            SET @letra = @letra +
                CASE WHEN @entero / 1000000 % 1000000 = 1 THEN N''MILL'' + @o + N''N '' ELSE N''MILLONES '' END

        SET @divisor = @divisor / 1000
    END
    IF @entero = 0 SET @letra = N''CERO ''

    DECLARE @nombre nvarchar(max), @nacional bit, @cabeza int
    SET @nombre = UPPER(LTRIM(RTRIM(ISNULL(@moneda, N''''))))
    SET @nacional = CASE WHEN @nombre IN (N'''', N''PESO'', N''PESOS'', N''MXN'') THEN 1 ELSE 0 END
    IF @nacional = 1 SET @nombre = N''PESOS''
    IF @entero = 1
    BEGIN
        -- One unit: the words before a " DE " lose their plural.
        SET @cabeza = CHARINDEX(N'' DE '', @nombre)
        IF @cabeza = 0 SET @cabeza = LEN(@nombre) + 1
        SET @nombre =
            RTRIM(REPLACE(REPLACE(REPLACE(REPLACE(REPLACE(REPLACE(LEFT(@nombre, @cabeza - 1) + N'' '',
                N''RES '', N''R ''), N''LES '', N''L ''), N''NES '', N''N ''),
                N''OS '', N''O ''), N''AS '', N''A ''), N''ES '', N''E '')) +
            SUBSTRING(@nombre, @cabeza, LEN(@nombre))
    END
    IF @entero > 0 AND @entero % 1000000 = 0 SET @nombre = N''DE '' + @nombre

    RETURN CASE WHEN @importe < 0 AND @centavos > 0 THEN N''MENOS '' ELSE N'''' END +
        @letra + @nombre + N'' '' +
        RIGHT(N''0'' + CAST(@centavos % 100 AS nvarchar(2)), 2) + N''/100'' +
        CASE WHEN @nacional = 1 THEN N'' M.N.'' ELSE N'''' END
END')
GO
